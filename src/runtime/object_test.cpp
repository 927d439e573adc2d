#include "runtime/object.h"

#include <gtest/gtest.h>

#include <array>

#include "runtime/coerce.h"
#include "support/test_component.h"

namespace vandpublic {
namespace {

class EmptyObject final : public Object {
 public:
  std::string_view ClassName() const noexcept override { return "Empty"; }
};

const Raised kNoSuchThing = PlainFault(FaultNumber::NoSuchPropertyOrMethod);

TEST(Object, What_it_does_not_have_is_fault_438) {
  EmptyObject object;
  EXPECT_EQ(RaisedBy([&] { object.Get("Number", {}); }), kNoSuchThing);
  EXPECT_EQ(RaisedBy([&] { object.Set("Number", 1.0); }), kNoSuchThing);
  EXPECT_EQ(RaisedBy([&] { object.Call("Raise", {}); }), kNoSuchThing);
}

TEST(ErrObject, Its_properties_are_found_in_any_case) {
  ErrObject error(5, u"Module", u"Broken");
  EXPECT_EQ(error.ClassName(), "ErrObject");
  EXPECT_EQ(error.Get("Number", {}), Variant(Long{5}));
  EXPECT_EQ(error.Get("SOURCE", {}), Variant("Module"));
  EXPECT_EQ(error.Get("description", {}), Variant("Broken"));
  EXPECT_EQ(RaisedBy([&] { error.Get("HelpFile", {}); }), kNoSuchThing);
}

TEST(ErrObject, Its_properties_can_only_be_read) {
  ErrObject error(5, u"Module", u"Broken");
  const Raised read_only = PlainFault(FaultNumber::PropertyNotWritable);
  EXPECT_EQ(RaisedBy([&] { error.Set("Number", Long{6}); }), read_only);
  EXPECT_EQ(RaisedBy([&] { error.Set("source", "x"); }), read_only);
  EXPECT_EQ(RaisedBy([&] { error.Set("Description", "x"); }), read_only);
  EXPECT_EQ(RaisedBy([&] { error.Set("HelpFile", "x"); }), kNoSuchThing);
  EXPECT_EQ(error.Get("Number", {}), Variant(Long{5}));
}

TEST(ErrObject, Raise_takes_what_is_left_out_from_the_object) {
  ErrObject error(5, u"Module", u"Broken");
  std::array<Variant, 3> arguments = {Long{-2147221504}, "Other", "Worse"};
  const std::span<Variant> all(arguments);
  EXPECT_EQ(RaisedBy([&] { error.Call("Raise", {}); }), (Raised{5, "Module", "Broken"}));
  EXPECT_EQ(RaisedBy([&] { error.Call("raise", all.first(1)); }),
            (Raised{-2147221504, "Module", "Broken"}));
  EXPECT_EQ(RaisedBy([&] { error.Call("RAISE", all.first(2)); }),
            (Raised{-2147221504, "Other", "Broken"}));
  EXPECT_EQ(RaisedBy([&] { error.Call("Raise", all); }), (Raised{-2147221504, "Other", "Worse"}));
}

TEST(ErrObject, Raise_converts_its_arguments) {
  ErrObject error(5, u"Module", u"Broken");
  std::array<Variant, 2> arguments = {"9", 1.5};
  EXPECT_EQ(RaisedBy([&] { error.Call("Raise", arguments); }), (Raised{9, "1.5", "Broken"}));
  arguments[0] = "nine";
  EXPECT_EQ(RaisedBy([&] { error.Call("Raise", arguments); }),
            PlainFault(FaultNumber::TypeMismatch));
}

TEST(ErrObject, It_has_no_other_operation) {
  ErrObject error(5, u"Module", u"Broken");
  EXPECT_EQ(RaisedBy([&] { error.Call("Clear", {}); }), kNoSuchThing);
}

TEST(Object, SameName_ignores_case_of_ASCII_letters_only) {
  EXPECT_TRUE(SameName("", ""));
  EXPECT_TRUE(SameName("FstrDES3", "fSTRdes3"));
  EXPECT_FALSE(SameName("DES", "DES3"));
  EXPECT_FALSE(SameName("DES3", "DES"));
  EXPECT_FALSE(SameName("a@", "a`"));
  EXPECT_FALSE(SameName("\xC3\xA9", "\xC3\x89"));
}

}  // namespace
}  // namespace vandpublic
