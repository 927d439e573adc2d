// Damage to files, the same in every run.
#ifndef VANDPUBLIC_TESTS_SUPPORT_DAMAGE_H
#define VANDPUBLIC_TESTS_SUPPORT_DAMAGE_H

#include <functional>
#include <random>
#include <string>

namespace vandpublic::ado {

// A copy of the content with some damage: bits turned over, bytes replaced, a stretch copied to
// another place or filled, or the end cut off.
std::string Damaged(const std::string& content, std::mt19937& random);

// Runs the action. It may end in an AutomationError; any other exception fails the test, and so
// does an action that takes longer than a second of the processor's time, or than five in a slow
// build.
void ExpectOrderlyEnd(const std::string& what, const std::function<void()>& action);

}  // namespace vandpublic::ado

#endif
