#include "runtime/errors.h"

#include <gtest/gtest.h>

#include "runtime/utf8.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

struct FaultCase {
  int number;
  const char* text;
};

constexpr FaultCase kFaults[] = {
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {13, "Type mismatch"},
    {51, "Internal error"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {55, "File already open"},
    {57, "Device I/O error"},
    {61, "Disk full"},
    {67, "Too many files"},
    {70, "Permission denied"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable or With block variable not set"},
    {94, "Invalid use of Null"},
    {429, "ActiveX component can't create object"},
    {438, "Object doesn't support this property or method"},
    {448, "Named argument not found"},
    {449, "Argument not optional"},
    {450, "Wrong number of arguments or invalid property assignment"},
    {451, "Property let procedure not defined and property get procedure did not return an object"},
    {5017, "Syntax error in regular expression"},
    {5018, "Unexpected quantifier"},
    {5019, "Expected ']' in regular expression"},
    {5020, "Expected ')' in regular expression"},
    {5021, "Invalid range in character set"},
    {1, "Application-defined or object-defined error"},
    {-2147221455, "Application-defined or object-defined error"},
};

TEST(Errors, Each_fault_has_its_classic_text_and_one_source) {
  for (const FaultCase& fault : kFaults) {
    const auto number = static_cast<FaultNumber>(fault.number);
    EXPECT_EQ(ToUtf8(FaultText(number)), fault.text) << fault.number;
    EXPECT_EQ(RaisedBy([&] { RaiseFault(number); }),
              (Raised{fault.number, "Public_Module", fault.text}));
  }
}

TEST(Errors, A_fault_is_caught_as_an_automation_error_and_as_a_standard_exception) {
  EXPECT_THROW(RaiseFault(FaultNumber::Overflow), RuntimeFault);
  EXPECT_THROW(RaiseFault(FaultNumber::Overflow), AutomationError);
  EXPECT_THROW(RaiseFault(FaultNumber::Overflow), std::exception);
}

TEST(Errors, what_shows_source_number_and_description_in_UTF8) {
  const AutomationError error(-2147221485, u"clsCommon.HexToDec", u"\u00e9");
  EXPECT_STREQ(error.what(), "clsCommon.HexToDec (-2147221485) \xC3\xA9");
  EXPECT_EQ(error.number(), -2147221485);
  EXPECT_EQ(error.source(), u"clsCommon.HexToDec");
  EXPECT_EQ(error.description(), u"\u00e9");
}

}  // namespace
}  // namespace vandpublic
