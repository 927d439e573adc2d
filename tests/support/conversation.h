// Requests to a session of the pipe, one after the other, with the replies that are right.
#ifndef VANDPUBLIC_TESTS_SUPPORT_CONVERSATION_H
#define VANDPUBLIC_TESTS_SUPPORT_CONVERSATION_H

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>

#include "cli/pipe_session.h"
#include "support/tool_platform.h"

namespace vandpublic {

// A request and the one reply that is right.
struct Exchange {
  std::string_view request;
  std::string_view reply;
};

// One after the other on one session.
inline void Converse(PipeSession& session, std::initializer_list<Exchange> exchanges) {
  for (const auto& [request, reply] : exchanges)
    EXPECT_EQ(session.HandleLine(request), reply) << request;
}

// The same on a session of its own.
inline void Converse(std::initializer_list<Exchange> exchanges) {
  PipeSession session(TestPlatform());
  Converse(session, exchanges);
}

// The start of the reply where a property or method is not there.
inline constexpr const char* kFault438 =
    R"({"error":{"number":438,"hex":"0x000001B6","source":"Public_Module",)"
    R"("description":"Object doesn't support this property or method"})";

}  // namespace vandpublic

#endif
