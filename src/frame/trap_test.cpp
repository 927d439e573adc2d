#include "frame/trap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

#include "support/test_component.h"

namespace vandpublic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// One way to fail inside a member, with what the log and a composed description say of it.
struct Failing {
  const char* name;
  std::function<void()> fail;
  bool rejection;
  std::string composed;
};

const Failing kFailings[] = {
    {"rejection", [] { Reject(u"Wrong. "); }, true, "Wrong."},
    {"runtime fault", [] { RaiseFault(FaultNumber::Overflow); }, false,
     "Public_Module (6) - Overflow"},
    {"error of another member",
     [] { throw AutomationError(-2147221464, u" clsCommon.DES ", u" Bad. "); }, false,
     "clsCommon.DES (-2147221464) - Bad."},
    {"error with an empty description",
     [] { throw AutomationError(-2147221455, u"clsCommon.FillByteArrWithHexStr", u""); }, false,
     "clsCommon.FillByteArrWithHexStr (-2147221455) - "},
    {"no memory", [] { throw std::bad_alloc(); }, false, "Public_Module (7) - Out of memory"},
    {"too long", [] { throw std::length_error("too long"); }, false,
     "Public_Module (7) - Out of memory"},
    {"other standard exception", [] { throw std::logic_error("x"); }, false,
     "Public_Module (51) - Internal error"},
    {"foreign exception", [] { throw 42; }, false, "Public_Module (51) - Internal error"},
};

// A member for each style and description policy that the table has.
struct Style {
  Member member;
  const char* heading;  // null: nothing is logged
  const char* source;   // null: nothing is raised
  int code;
  bool empty_description;    // of what is no rejection
  bool own_rejections_only;  // other errors pass
};

constexpr Style kStyles[] = {
    {Member::ArraySize, "VandPublic.clsCommon.ArraySize", "ArraySize", 0x03, false, false},
    {Member::IsHex, "VandPublic.clsCommon.IsHex", "IsHex", 0x08, true, false},
    {Member::NotNull, "prjCommon.clsCommon.NotNull", "NotNull", 0x09, false, false},
    {Member::FstrDiversifyKey, "VandPublic.clsCommon.FstrUDES3", "FstrUDES3", 0x1E, false, false},
    {Member::DiversifyKey, "VandPublic.clsCommon.DiversifyKey", "DiversifyKey", 0x17, false, true},
    {Member::DispBytes, "VandPublic.clsCommon.DispBytes", nullptr, 0, false, false},
    {Member::SystemEncrypt, "VandPublic.clsPublic.SystemEncrypt", nullptr, 0, true, false},
    {Member::FstrUDES3, nullptr, nullptr, 0, false, false},
};

// The description raised and handed out.
std::string Described(const Style& style, const Failing& failing) {
  if (failing.rejection) return "Wrong. ";  // untrimmed
  return style.empty_description ? "" : failing.composed;
}

void CheckFailure(const Style& style, const Failing& failing) {
  SCOPED_TRACE(std::string(failing.name) + " in " + (style.heading ? style.heading : "FstrUDES3"));
  TestComponent component;
  String description = "old";
  OptionalRef<String> reference(description);
  int result = 7;
  const Raised raised = RaisedBy([&] {
    result = Trapped(component.object, style.member, reference, [&]() -> int {
      failing.fail();
      return 1;
    });
  });

  const bool logged = style.heading != nullptr;
  if (logged) {
    const std::string message = failing.rejection ? "Wrong." : failing.composed;
    EXPECT_THAT(component.LogLines(),
                ElementsAre("2024-03-05 14:07:09 " + std::string(style.heading),
                            std::string(20, ' ') + message));
    EXPECT_EQ(description.ToUtf8(), Described(style, failing));
  } else {
    EXPECT_THAT(component.LogLines(), IsEmpty());
    EXPECT_EQ(description.ToUtf8(), "old");
  }
  if (style.source != nullptr) {
    EXPECT_EQ(raised, MemberError(style.code, style.source, Described(style, failing)));
    EXPECT_EQ(result, 7) << "an error ends the call";
  } else {
    EXPECT_EQ(raised, kNothingRaised);
    EXPECT_EQ(result, 0) << "the initial result";
  }
}

TEST(Trap, Each_style_deals_with_each_failure_as_its_row_says) {
  for (const Style& style : kStyles) {
    for (const Failing& failing : kFailings) {
      if (!style.own_rejections_only || failing.rejection) CheckFailure(style, failing);
    }
  }
}

TEST(Trap, A_member_with_a_trap_for_its_own_rejections_lets_other_errors_pass_unlogged) {
  TestComponent component;
  String description = "old";
  OptionalRef<String> reference(description);
  const auto fail_with = [&](auto fail) {
    return [&, fail] {
      Trapped(component.object, Member::DiversifyKey, reference, [&]() -> bool {
        fail();
        return true;
      });
    };
  };
  EXPECT_EQ(RaisedBy(fail_with([] { throw AutomationError(5, u" S ", u" D "); })),
            (Raised{5, " S ", " D "}));
  EXPECT_EQ(RaisedBy(fail_with([] { RaiseFault(FaultNumber::SubscriptOutOfRange); })),
            PlainFault(FaultNumber::SubscriptOutOfRange));
  EXPECT_THROW(fail_with([] { throw std::bad_alloc(); })(), std::bad_alloc);
  EXPECT_THROW(fail_with([] { throw 42; })(), int);
  EXPECT_EQ(component.Log(), "");
  EXPECT_EQ(description.ToUtf8(), "old");
}

TEST(Trap, Without_rstr_ErrDesc_the_failure_is_the_same) {
  TestComponent component;
  EXPECT_EQ(RaisedBy([&] {
              Trapped(component.object, Member::DES, [] { RaiseFault(FaultNumber::Overflow); });
            }),
            MemberError(0x28, "DES", Composed(FaultNumber::Overflow)));
  EXPECT_THAT(component.LoggedNames(), ElementsAre("DES"));
}

TEST(Trap, Work_that_succeeds_gives_its_result_and_touches_nothing) {
  TestComponent component;
  String description = "old";
  OptionalRef<String> reference(description);
  EXPECT_EQ(Trapped(component.object, Member::ArraySize, [] { return 5; }), 5);
  EXPECT_EQ(Trapped(component.object, Member::DispBytes, reference, [] { return 6; }), 6);
  EXPECT_EQ(component.Log(), "");
  EXPECT_EQ(description.ToUtf8(), "old");
}

TEST(Trap, What_the_member_knows_already_is_logged_above_the_error_and_raised_alone) {
  TestComponent component;
  String description = "old";
  const Raised raised = RaisedBy([&] {
    try {
      throw AutomationError(-2147221468, u"clsCommon.OpenADORecordSet", u"Not set.");
    } catch (...) {
      HandleFailure(component.object, Member::SelectField, "Known.", &description);
    }
  });
  EXPECT_EQ(raised, MemberError(0x16, "SelectField", "Known."));
  EXPECT_EQ(description.ToUtf8(), "Known.");
  EXPECT_THAT(
      component.LogLines(),
      ElementsAre("2024-03-05 14:07:09 VandPublic.clsCommon.SelectField",
                  std::string(20, ' ') + "Known.",
                  std::string(20, ' ') + "clsCommon.OpenADORecordSet (-2147221468) - Not set."));
}

TEST(Trap, What_the_work_has_described_is_told_by_a_member_that_raises_nothing_too) {
  TestComponent component;
  String description = "old";
  OptionalRef<String> reference(description);
  EXPECT_EQ(Trapped(component.object, Member::SystemEncrypt, reference,
                    [](String& known) -> int {
                      known = "Known.";
                      RaiseFault(FaultNumber::Overflow);
                    }),
            0);
  EXPECT_EQ(description.ToUtf8(), "Known.");
  EXPECT_THAT(component.LogLines(),
              ElementsAre("2024-03-05 14:07:09 VandPublic.clsPublic.SystemEncrypt",
                          std::string(20, ' ') + "Known.", testing::HasSubstr("(6) - Overflow")));
}

TEST(Trap, A_log_that_cannot_be_written_changes_nothing_of_the_failure) {
  TestComponent component;
  component.services.files->FailOpen(1, FaultNumber::PathNotFound);
  EXPECT_EQ(RaisedBy([&] {
              Trapped(component.object, Member::ArraySize,
                      [] { RaiseFault(FaultNumber::Overflow); });
            }),
            MemberError(0x03, "ArraySize", Composed(FaultNumber::Overflow)));
}

TEST(Trap, A_nested_failure_is_logged_by_the_inner_member_first) {
  TestComponent component;
  EXPECT_EQ(RaisedBy([&] {
              Trapped(component.object, Member::HexToBit, [&] {
                Trapped(component.object, Member::HexToDec, [] { Reject(u"No digit."); });
              });
            }),
            MemberError(0x12, "HexToBit", ""));
  EXPECT_THAT(component.LogLines(),
              ElementsAre("2024-03-05 14:07:09 VandPublic.clsCommon.HexToDec",
                          std::string(20, ' ') + "No digit.",
                          "2024-03-05 14:07:09 VandPublic.clsCommon.HexToBit",
                          std::string(20, ' ') + "clsCommon.HexToDec (-2147221485) - No digit."));
}

}  // namespace
}  // namespace vandpublic
