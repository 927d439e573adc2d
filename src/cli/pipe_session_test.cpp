// The forms of a request: calls, variables, properties, and what is no request.
#include "cli/pipe_session.h"

#include <gtest/gtest.h>

#include "support/conversation.h"

namespace vandpublic {
namespace {

// ---- calls

TEST(PipeSession, calls_by_position_and_by_name) {
  Converse({{R"({"member":"IsHex","args":["1F"]})", R"({"result":true,"refs":{}})"},
            {R"({"member":"BitToHex","args":{"ibyt_Bit3":1}})", R"({"result":"8","refs":{}})"},
            {R"({"member":"BitToHex"})", R"({"result":"0","refs":{}})"},
            {R"({"member":"BitToHex","args":[]})", R"({"result":"0","refs":{}})"},
            {R"({"member":"BitToHex","args":[{"missing":true},1]})", R"({"result":"2","refs":{}})"},
            {R"({"member":"BitToHex","args":{"ibyt_Bit1":{"missing":true}}})",
             R"({"result":"0","refs":{}})"}});
}

TEST(PipeSession, names_of_members_and_parameters_have_no_case) {
  Converse(
      {{R"({"member":"ISHEX","args":{"ISTR_HEXNUMBER":"G"}})", R"({"result":false,"refs":{}})"},
       {R"({"get":"debugmode"})", R"({"result":1})"}});
}

TEST(PipeSession, echoes_the_id_as_it_is_written) {
  for (const char* id : {"1", "1.50", "-0", "\"x\\u0041\"", "null", "[1, {\"a\":[]}]", "{}",
                         "12345678901234567890123", "true", "1E2"}) {
    Converse({{R"({"member":"BitToHex","id":)" + std::string(id) + "}",
               R"({"id":)" + std::string(id) + R"(,"result":"0","refs":{}})"}});
  }
  Converse({{R"({"\u0069d":[ 7 ],"member":"BitToHex"})", R"({"id":[7],"result":"0","refs":{}})"},
            {R"({"id":5,"member":"Foo"})", R"({"id":5,"protocol_error":"unknown member 'Foo'"})"},
            {R"({"id":5,"get":"DebugMode"})", R"({"id":5,"result":1})"}});
}

TEST(PipeSession, shows_every_reference_also_omitted_ones) {
  Converse({{R"({"member":"HexToBit","args":["A"]})",
             R"({"result":null,"refs":{"rbyt_Bit0":0,"rbyt_Bit1":1,"rbyt_Bit2":0,"rbyt_Bit3":1}})"},
            {R"({"member":"HexToBit","args":["A",7,7]})",
             R"({"result":null,"refs":{"rbyt_Bit0":0,"rbyt_Bit1":1,"rbyt_Bit2":0,"rbyt_Bit3":1}})"},
            {R"({"member":"CpyByteArray","args":[{"bytes":"0000"},{"bytes":"0102","lower":1},1,)"
             R"({"missing":true},1]})",
             R"({"result":false,"refs":{"abyt_Dest":{"bytes":"0100"},)"
             R"("abyt_Src":{"bytes":"0102","lower":1},"iint_DataLen":1,)"
             R"("rvar_DesSub":{"vt":2,"value":1},"iint_SrcSub":1}})"}});
}

TEST(PipeSession, a_failure_has_number_source_description_and_references) {
  Converse({{R"({"id":"a","member":"HexToDec","args":["G"]})",
             R"({"id":"a","error":{"number":-2147221485,"hex":"0x80040013",)"
             R"("source":"clsCommon.HexToDec","description":"Input value is not in hex format."},)"
             R"("refs":{}})"},
            {R"({"member":"HexToBit","args":["G",7]})",
             R"({"error":{"number":-2147221486,"hex":"0x80040012","source":"clsCommon.HexToBit",)"
             R"("description":""},)"
             R"("refs":{"rbyt_Bit0":7,"rbyt_Bit1":0,"rbyt_Bit2":0,"rbyt_Bit3":0}})"}});
}

TEST(PipeSession, references_keep_what_was_written_before_a_failure) {
  Converse({{R"({"member":"CpyByteArray","args":[{"bytes":"00"},{"bytes":"0102"},2]})",
             R"({"error":{"number":9,"hex":"0x00000009","source":"Public_Module",)"
             R"("description":"Subscript out of range"},"refs":{"abyt_Dest":{"bytes":"01"},)"
             R"("abyt_Src":{"bytes":"0102"},"iint_DataLen":2,"rvar_DesSub":{"vt":2,"value":1},)"
             R"("iint_SrcSub":0}})"}});
}

TEST(PipeSession, an_error_object_without_a_property_is_fault_438) {
  for (const char* error : {R"({"Source":"s","Description":"d"})", R"({"Number":5,"Source":"s"})",
                            R"({"Number":5,"Description":"d"})", "{}"}) {
    Converse({{R"({"member":"LogError","args":["a","m","f",)" + std::string(error) + "]}",
               kFault438 + std::string(R"(,"refs":{"irstr_ErrDesc":""}})")}});
  }
}

TEST(PipeSession, an_error_object_reaches_the_member) {
  Converse({{R"({"member":"LogError","args":["a","m","f",{"Number":5,"Source":" s ",)"
             R"("Description":"d"}]})",
             R"({"result":null,"refs":{"irstr_ErrDesc":"s (5) - d"}})"},
            {R"({"member":"LogError","args":["a","m","f",null,"x"]})",
             R"({"error":{"number":91,"hex":"0x0000005B","source":"Public_Module",)"
             R"("description":"Object variable or With block variable not set"},)"
             R"("refs":{"irstr_ErrDesc":"x"}})"}});
}

TEST(PipeSession, text_that_utf8_cannot_hold_comes_as_storage_bytes) {
  Converse({{R"({"set":"AppPath","value":{"utf16le":"00D84100"}})", R"({"result":null})"},
            {R"({"get":"AppPath"})", R"({"result":{"utf16le":"00D84100"}})"},
            {R"({"set":"AppPath","value":{"utf16le":"4100"}})", R"({"result":null})"},
            {R"({"get":"AppPath"})", R"({"result":"A"})"},
            {R"({"set":"AppPath","value":null})", R"({"result":null})"},
            {R"({"get":"AppPath"})", R"({"result":""})"}});
}

// ---- variables

TEST(PipeSession, a_variable_keeps_its_type) {
  Converse({{R"({"let":"n","type":"integer","value":7})", R"({"result":null})"},
            {R"({"member":"HexToBit","args":["F",{"var":"n"}]})",
             R"({"result":null,"refs":{"rbyt_Bit0":1,"rbyt_Bit1":1,"rbyt_Bit2":1,"rbyt_Bit3":1}})"},
            {R"({"show":"n"})", R"({"result":1})"},
            {R"({"let":"t","type":"String","value":"8"})", R"({"result":null})"},
            {R"({"member":"HexToBit","args":["F",{"var":"t"}]})",
             R"({"result":null,"refs":{"rbyt_Bit0":1,"rbyt_Bit1":1,"rbyt_Bit2":1,"rbyt_Bit3":1}})"},
            {R"({"show":"t"})", R"({"result":"1"})"},
            {R"({"let":"v","type":"Variant","value":{"vt":2,"value":5}})", R"({"result":null})"},
            {R"({"member":"HexToBit","args":["F",{"var":"v"}]})",
             R"({"result":null,"refs":{"rbyt_Bit0":1,"rbyt_Bit1":1,"rbyt_Bit2":1,"rbyt_Bit3":1}})"},
            {R"({"show":"v"})", R"({"result":{"vt":17,"value":1}})"}});
}

TEST(PipeSession, what_a_variant_parameter_wrote_is_converted_to_the_variables_type) {
  // The subscript grows past the byte's range and becomes a wider number there.
  Converse({{R"({"let":"b","type":"Byte","value":0})", R"({"result":null})"},
            {R"({"member":"CpyByteArray","args":[{"bytes":"00"},{"bytes":"01"},1,{"var":"b"}]})",
             R"({"result":false,"refs":{"abyt_Dest":{"bytes":"01"},"abyt_Src":{"bytes":"01"},)"
             R"("iint_DataLen":1,"rvar_DesSub":{"vt":17,"value":1},"iint_SrcSub":0}})"},
            {R"({"show":"b"})", R"({"result":1})"},
            {R"({"let":"b","type":"Byte","value":255})", R"({"result":null})"},
            {R"({"member":"CpyByteArray","args":[{"bytes":"00","lower":255},{"bytes":"01"},1,)"
             R"({"var":"b"}]})",
             R"({"error":{"number":6,"hex":"0x00000006","source":"Public_Module",)"
             R"("description":"Overflow"},"refs":{"abyt_Dest":{"bytes":"01","lower":255},)"
             R"("abyt_Src":{"bytes":"01"},"iint_DataLen":1,"rvar_DesSub":{"vt":17,"value":255},)"
             R"("iint_SrcSub":0}})"},
            {R"({"show":"b"})", R"({"result":255})"}});
}

TEST(PipeSession, a_variable_given_twice_is_one_array) {
  Converse(
      {{R"({"let":"a","type":"ByteArray","value":{"bytes":"01020304"}})", R"({"result":null})"},
       {R"({"member":"CpyByteArray","args":[{"var":"a"},{"var":"a"},3,1]})",
        R"({"result":false,"refs":{"abyt_Dest":{"bytes":"01010101"},)"
        R"("abyt_Src":{"bytes":"01010101"},"iint_DataLen":3,)"
        R"("rvar_DesSub":{"vt":3,"value":4},"iint_SrcSub":0}})"},
       {R"({"show":"a"})", R"({"result":{"bytes":"01010101"}})"}});
}

TEST(PipeSession, an_unknown_variable_starts_as_its_type_does) {
  Converse({{R"({"member":"FillByteArrWithHexStr","args":[{"var":"a"},"0A0B",{"var":"p"}]})",
             R"({"result":true,"refs":{"ArrToBeFill":{"bytes":"0A0B"},"istr_HexStr":"0A0B",)"
             R"("rvar_Pos":{"vt":2,"value":2},"rstr_ErrDesc":""}})"},
            {R"({"show":"a"})", R"({"result":{"bytes":"0A0B"}})"},
            {R"({"show":"p"})", R"({"result":{"vt":2,"value":2}})"}});
}

TEST(PipeSession, a_call_that_does_not_take_place_defines_no_variable) {
  Converse(
      {{R"({"member":"HexToBit","args":["F",{"var":"x"},256]})",
        R"({"protocol_error":"argument 'rbyt_Bit1': a whole number from 0 to 255 is needed"})"},
       {R"({"show":"x"})", R"({"protocol_error":"unknown name 'x'"})"},
       {R"({"member":"CpyByteArray","args":[{"var":"x"}]})",
        R"({"protocol_error":"argument 'abyt_Src' is missing"})"},
       {R"({"show":"x"})", R"({"protocol_error":"unknown name 'x'"})"}});
}

TEST(PipeSession, variables_are_defined_shown_and_dropped) {
  Converse({{R"({"let":"s","type":"String"})", R"({"result":null})"},
            {R"({"show":"s"})", R"({"result":""})"},
            {R"({"let":"s","type":"Variant"})", R"({"result":null})"},
            {R"({"show":"s"})", R"({"result":{"vt":0,"value":null}})"},
            {R"({"let":"s","type":"ByteArray","value":{"bytes":"0102","bounds":[[0,1],[0,0]]}})",
             R"({"result":null})"},
            {R"({"show":"s"})", R"({"result":{"bytes":"0102","bounds":[[0,1],[0,0]]}})"},
            {R"({"drop":"s"})", R"({"result":null})"},
            {R"({"drop":"s"})", R"({"protocol_error":"unknown name 's'"})"},
            {R"({"let":"s","type":"Integr"})",
             R"({"protocol_error":"unknown type 'Integr'; did you mean 'Integer'?"})"},
            {R"({"let":"s","type":"Byte","value":256})",
             R"({"protocol_error":"'value': a whole number from 0 to 255 is needed"})"}});
}

TEST(PipeSession, a_variable_of_the_wrong_type_does_not_fit) {
  Converse({{R"({"let":"s","type":"String","value":"x"})", R"({"result":null})"},
            {R"({"member":"HexToBit","args":["F",{"var":"s"}]})",
             R"({"protocol_error":"argument 'rbyt_Bit0' has a value of the wrong type"})"},
            {R"({"member":"CpyByteArray","args":[{"var":"s"},{"bytes":""},0]})",
             R"({"protocol_error":"argument 'abyt_Dest' has a value of the wrong type"})"}});
}

TEST(PipeSession, the_result_can_be_kept) {
  Converse({{R"({"member":"HexToDec","args":["FF"],"as":"n"})", R"({"result":255,"refs":{}})"},
            {R"({"show":"n"})", R"({"result":{"vt":3,"value":255}})"}});
}

// ---- properties

TEST(PipeSession, reads_and_writes_properties) {
  Converse({{R"({"set":"DebugMode","value":"DEBUG_MODE_MSGBOX"})", R"({"result":null})"},
            {R"({"get":"DebugMode"})", R"({"result":2})"},
            {R"({"set":"LogFilePath","value":" /x "})", R"({"result":null})"},
            {R"({"get":"LogFileFullName"})", R"({"result":"/x\\ERROR.log"})"},
            {R"({"let":"p","type":"String","value":"/y"})", R"({"result":null})"},
            {R"({"set":"LogFilePath","value":{"var":"p"}})", R"({"result":null})"},
            {R"({"get":"LogFilePath","as":"q"})", R"({"result":"/y"})"},
            {R"({"show":"q"})", R"({"result":{"vt":8,"value":"/y"}})"}});
}

TEST(PipeSession, tells_properties_from_methods) {
  Converse(
      {{R"({"member":"LogFilePath"})",
        R"({"protocol_error":"'LogFilePath' is a property; use \"get\" or \"set\""})"},
       {R"({"get":"IsHex"})", R"({"protocol_error":"'IsHex' is no property; use \"member\""})"},
       {R"({"set":"LogFileFullName","value":"x"})",
        R"({"protocol_error":"property 'LogFileFullName' cannot be written"})"},
       {R"({"set":"LogFilePath"})", R"({"protocol_error":"'value' is missing"})"},
       {R"({"get":"AppPath","args":[1]})",
        R"({"protocol_error":"too many arguments: 'AppPath' takes none"})"}});
}

// ---- what is no request

TEST(PipeSession, explains_what_is_no_request) {
  Converse({
      {"", R"({"protocol_error":"bad JSON at byte 1"})"},
      {"{", R"({"protocol_error":"bad JSON at byte 2"})"},
      {"\xFF", R"({"protocol_error":"bad JSON at byte 1"})"},
      {"[1]", R"({"protocol_error":"a request must be a JSON object"})"},
      {"{}",
       R"({"protocol_error":"a request needs one of member, get, set, new, let, show or drop"})"},
      {R"({"member":"IsHex","arg":["1"]})",
       R"({"protocol_error":"key 'arg' does not go with 'member'"})"},
      {R"({"member":"IsHex","get":"AppPath"})",
       R"({"protocol_error":"key 'get' does not go with 'member'"})"},
      {R"({"member":5})", R"({"protocol_error":"'member' must be a text"})"},
      {R"({"member":"BitToHex","as":5})", R"({"protocol_error":"'as' must be a text"})"},
      {R"({"member":"HxToDec","args":["1"]})",
       R"({"protocol_error":"unknown member 'HxToDec'; did you mean 'HexToDec'?"})"},
      {R"({"member":"IsHex","args":["1","2"]})",
       R"({"protocol_error":"too many arguments: 'IsHex' takes at most 1"})"},
      {R"({"member":"IsHex","args":{"istr_HexNumbr":"1"}})",
       R"({"protocol_error":"unknown argument 'istr_HexNumbr' of 'IsHex'; )"
       R"(did you mean 'istr_HexNumber'?"})"},
      {R"({"member":"IsHex","args":{"istr_HexNumber":"1","ISTR_HEXNUMBER":"1"}})",
       R"({"protocol_error":"argument 'istr_HexNumber' is given twice"})"},
      {R"({"member":"IsHex","args":{"istr_HexNumber":"1","istr_HexNumber":"1"}})",
       R"({"protocol_error":"key 'istr_HexNumber' is given twice"})"},
      {R"({"member":"IsHex"})", R"({"protocol_error":"argument 'istr_HexNumber' is missing"})"},
      {R"({"member":"IsHex","args":[{"missing":true}]})",
       R"({"protocol_error":"argument 'istr_HexNumber' is missing"})"},
      {R"({"member":"IsHex","args":5})",
       R"({"protocol_error":"'args' must be an object or an array"})"},
      {R"({"member":"IsHex","args":[5]})", R"({"protocol_error":"argument 'istr_HexNumber': )"
                                           R"(a text, null or {\"utf16le\":HEX} is needed"})"},
  });
}

TEST(PipeSession, every_member_answers) {
  PipeSession session(TestPlatform());
  for (const MemberInfo& member : MemberTable()) {
    if (member.kind != SlotKind::Method) continue;
    Json args = Json::array();
    for (const Parameter& parameter : member.parameters) {
      if (!parameter.IsOptional()) args.push_back({{"var", std::string(parameter.name)}});
    }
    const Json reply =
        session.Handle({{"member", std::string(member.name)}, {"args", std::move(args)}});
    EXPECT_FALSE(reply.contains("protocol_error")) << member.name << ": " << reply.dump();
    std::size_t references = 0;
    for (const Parameter& parameter : member.parameters)
      references += parameter.by_reference ? 1 : 0;
    EXPECT_EQ(reply["refs"].size(), references) << member.name;
  }
}

}  // namespace
}  // namespace vandpublic
