// The calls whose instructions are counted, one in each run of the program:
//
//   counted_calls            lists the cases
//   counted_calls CASE       prepares the case, does the call once so that everything is there
//                            that is made on first use, then does it again in CountedCall
//
// Only what happens within CountedCall counts (callgrind's --toggle-collect).
#include <fcntl.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "cli/pipe.h"
#include "frame/clsPublic.h"

namespace vandpublic {
namespace {

using Call = std::function<void()>;

ByteArray Data(std::size_t size) {
  std::vector<Byte> data(size);
  for (std::size_t i = 0; i < size; ++i)
    data[i] = static_cast<Byte>(i * 131 + (i >> 8) * 7 + 1);
  return ByteArray(std::move(data));
}

Call DesCall(Integer length) {
  return [object = std::make_shared<clsPublic>(), key = Data(8), length,
          in = Data(static_cast<std::size_t>(length)),
          out = Data(static_cast<std::size_t>(length))]() mutable {
    object->DES(key, in, length, out);
  };
}

Call Des3Call(Integer length) {
  return [object = std::make_shared<clsPublic>(), key = Data(16), length,
          in = Data(static_cast<std::size_t>(length)),
          out = Data(static_cast<std::size_t>(length))]() mutable {
    object->DES3(key, in, length, out);
  };
}

Call RetailMacCall() {
  return [object = std::make_shared<clsPublic>(), key = Data(16), length = Integer{256},
          in = Data(256), init = Data(8),
          mac = Data(8)]() mutable { object->TMAC(key, in, length, init, mac); };
}

Call FillCall() {
  return [object = std::make_shared<clsPublic>(), array = Data(1024),
          text = String(std::u16string(2048, u'7'))]() mutable {
    object->FillByteArrWithHexStr(array, text, Integer{0});
  };
}

Call DumpCall() {
  return [object = std::make_shared<clsPublic>(), array = Data(1024)]() mutable {
    object->DispBytes(array, 0, 16, true);
  };
}

Call TestCall() {
  return [object = std::make_shared<clsPublic>(), source = String(u"0123ABCD"),
          pattern = String(u"^[0-9A-F]{8}$")] { object->RegExpTest(source, pattern); };
}

// Requests from one descriptor, replies to the other.
Call PipeCall() {
  std::FILE* const requests = std::tmpfile();
  const int sink = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (requests == nullptr || sink < 0) std::abort();
  for (int i = 0; i < 1000; ++i)
    std::fputs("{\"id\":1,\"member\":\"IsHex\",\"args\":[\"0123456789ABCDEF\"]}\n", requests);
  std::fflush(requests);
  return [session = std::make_shared<PipeSession>(SystemPlatform()), requests, sink] {
    std::rewind(requests);
    lseek(fileno(requests), 0, SEEK_SET);
    RunPipe(*session, fileno(requests), sink);
  };
}

struct Case {
  const char* name;
  Call (*make)();
};

constexpr Case kCases[] = {
    {"DES-8", [] { return DesCall(8); }},
    {"DES3-64", [] { return Des3Call(64); }},
    {"DES3-1024", [] { return Des3Call(1024); }},
    {"TMAC-256", RetailMacCall},
    {"FillByteArrWithHexStr-1024", FillCall},
    {"DispBytes-1024", DumpCall},
    {"RegExpTest-short", TestCall},
    {"pipe-1000-IsHex", PipeCall},
    {"object-creation", [] { return Call([] { clsPublic(); }); }},
};

}  // namespace

// Kept out of line and under this name, which the counting looks for.
[[gnu::noinline]] void CountedCall(const Call& call) {
  call();
  asm volatile("" : : : "memory");
}

}  // namespace vandpublic

int main(int argc, char** argv) {
  for (const auto& one : vandpublic::kCases) {
    if (argc < 2) {
      std::puts(one.name);
    } else if (std::strcmp(argv[1], one.name) == 0) {
      const vandpublic::Call call = one.make();
      call();
      vandpublic::CountedCall(call);
      return EXIT_SUCCESS;
    }
  }
  return argc < 2 ? EXIT_SUCCESS : EXIT_FAILURE;
}
