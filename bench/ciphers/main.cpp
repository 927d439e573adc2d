// The cipher family beside the peers: every workload by every library, by the engine at its border
// and by the members, in one process. Names are WORKLOAD/WHO/BYTES.
//
// Before anything is measured, every library's outcome is compared with the engine's.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "crypto/des_engine.h"
#include "crypto/kernels/kernel_choice.h"
#include "frame/clsPublic.h"
#include "invoke/late_call.h"
#include "members/member_ids.h"
#include "peer.h"
#include "peers_found.h"

namespace bench {
namespace {

using vandpublic::ByteArray;
using vandpublic::clsPublic;
using vandpublic::Integer;

constexpr Byte kKey[16] = {0x13, 0x34, 0x57, 0x79, 0x9B, 0xBC, 0xDF, 0xF1,
                           0x2A, 0x4C, 0x6E, 0x80, 0xA2, 0xC4, 0xE6, 0x08};
constexpr std::size_t kCipherSizes[] = {8, 16, 24, 64, 256, 1024, 32760};
constexpr std::size_t kMacSizes[] = {0, 16, 256, 1023};

std::vector<Byte> Data(std::size_t size) {
  std::vector<Byte> data(size);
  for (std::size_t i = 0; i < size; ++i)
    data[i] = static_cast<Byte>(i * 131 + (i >> 8) * 7 + 1);
  return data;
}

// The message that a MAC of this length is taken over, padding method 2.
std::vector<Byte> Padded(std::size_t size) {
  std::vector<Byte> message = Data(size);
  message.push_back(0x80);
  message.resize((size / 8 + 1) * 8);
  return message;
}

// The engine at its border, in the shape of a peer.
std::span<const Byte, 8> Key8(const Byte* key) { return std::span<const Byte, 8>(key, 8); }
std::span<const Byte, 16> Key16(const Byte* key) { return std::span<const Byte, 16>(key, 16); }

void EngineDes3(const Byte* key, const Byte* source, Byte* result, std::size_t size) {
  vandpublic::TripleDesCipherBlocks(Key16(key), {source, size}, {result, size}, true);
}
void EngineMac(const Byte* key, const Byte* message, std::size_t size, Byte* mac) {
  std::memset(mac, 0, 8);
  vandpublic::DesChain(Key8(key), {message, size}, std::span<Byte, 8>(mac, 8));
}
void EngineRetail(const Byte* key, const Byte* message, std::size_t size, Byte* mac) {
  std::memset(mac, 0, 8);
  vandpublic::RetailChain(Key16(key), {message, size}, std::span<Byte, 8>(mac, 8));
}

// A call that can be repeated, and where its outcome stands.
template <class Call>
void Add(const std::string& workload, const char* who, std::size_t size, Call call) {
  const std::string name = workload + "/" + who + "/" + std::to_string(size);
  benchmark::RegisterBenchmark(name.c_str(), [call](benchmark::State& state) mutable {
    for (auto _ : state) {
      call();
      benchmark::ClobberMemory();
    }
  });
}

void Expect(bool same, const char* who, const char* workload) {
  if (same) return;
  std::fprintf(stderr, "%s: wrong outcome of %s\n", workload, who);
  std::exit(1);
}

void CheckPeer(const Peer& peer) {
  const std::vector<Byte> data = Data(256);
  std::vector<Byte> expected(256);
  std::vector<Byte> got(256);
  ByteArray result = ByteArray::WithBounds(0, 255);
  vandpublic::DesCipherBlocks(ByteArray(std::vector<Byte>(kKey, kKey + 8)), ByteArray(data), 256,
                              result, true);
  expected.assign(result.Elements().begin(), result.Elements().end());
  peer.des(kKey, data.data(), got.data(), 256);
  Expect(got == expected, peer.name, "DES");
  EngineDes3(kKey, data.data(), expected.data(), 256);
  peer.des3(kKey, data.data(), got.data(), 256);
  Expect(got == expected, peer.name, "3DES");
  Byte mac[8];
  Byte other[8];
  EngineMac(kKey, data.data(), 256, mac);
  peer.cbc_mac(kKey, data.data(), 256, other);
  Expect(std::memcmp(mac, other, 8) == 0, peer.name, "CBC-MAC");
  EngineRetail(kKey, data.data(), 256, mac);
  RetailMac(peer, kKey, data.data(), 256, other);
  Expect(std::memcmp(mac, other, 8) == 0, peer.name, "retail MAC");
}

// The derived key: triple DES of the data and of its complement.
template <class Cipher>
void Diversify(Cipher des3, const Byte* data, Byte* key) {
  Byte both[16];
  for (std::size_t i = 0; i < 8; ++i) {
    both[i] = data[i];
    both[8 + i] = static_cast<Byte>(~data[i]);
  }
  des3(kKey, both, key, 16);
}

void AddPeer(const Peer& peer) {
  for (const std::size_t size : kCipherSizes) {
    Add("DES", peer.name, size, [&peer, in = Data(size), out = Data(size)]() mutable {
      peer.des(kKey, in.data(), out.data(), in.size());
    });
    Add("3DES", peer.name, size, [&peer, in = Data(size), out = Data(size)]() mutable {
      peer.des3(kKey, in.data(), out.data(), in.size());
    });
  }
  for (const std::size_t size : kMacSizes) {
    Add("CBC-MAC", peer.name, size, [&peer, in = Padded(size), out = Data(8)]() mutable {
      peer.cbc_mac(kKey, in.data(), in.size(), out.data());
    });
    Add("retail-MAC", peer.name, size, [&peer, in = Padded(size), out = Data(8)]() mutable {
      RetailMac(peer, kKey, in.data(), in.size(), out.data());
    });
  }
  Add("diversify", peer.name, 8, [&peer, in = Data(8), out = Data(16)]() mutable {
    Diversify(peer.des3, in.data(), out.data());
  });
}

ByteArray ArrayOf(std::vector<Byte> bytes) { return ByteArray(std::move(bytes)); }

void AddEngine() {
  const ByteArray key = ArrayOf(std::vector<Byte>(kKey, kKey + 8));
  for (const std::size_t size : kCipherSizes) {
    Add("DES", "engine", size, [=, in = ArrayOf(Data(size)), out = ArrayOf(Data(size))]() mutable {
      vandpublic::DesCipherBlocks(key, in, static_cast<Integer>(in.Count()), out, true);
    });
    Add("3DES", "engine", size, [in = Data(size), out = Data(size)]() mutable {
      EngineDes3(kKey, in.data(), out.data(), in.size());
    });
  }
  for (const std::size_t size : kMacSizes) {
    Add("CBC-MAC", "engine", size, [in = Padded(size), out = Data(8)]() mutable {
      EngineMac(kKey, in.data(), in.size(), out.data());
    });
    Add("retail-MAC", "engine", size, [in = Padded(size), out = Data(8)]() mutable {
      EngineRetail(kKey, in.data(), in.size(), out.data());
    });
  }
  Add("diversify", "engine", 8,
      [in = Data(8), out = Data(16)]() mutable { Diversify(EngineDes3, in.data(), out.data()); });
}

void AddMembers() {
  const auto object = std::make_shared<clsPublic>();
  ByteArray key = ArrayOf(std::vector<Byte>(kKey, kKey + 16));
  for (const std::size_t size : kCipherSizes) {
    const ByteArray data = ArrayOf(Data(size));
    auto length = static_cast<Integer>(size);
    Add("DES", "member", size, [object, key, length, in = data, out = data]() mutable {
      object->DES(key, in, length, out);
    });
    Add("3DES", "member", size, [object, key, length, in = data, out = data]() mutable {
      object->DES3(key, in, length, out);
    });
  }
  const ByteArray block = ArrayOf(Data(8));
  for (const std::size_t size : kMacSizes) {
    const ByteArray data = ArrayOf(Data(size));
    auto length = static_cast<Integer>(size);
    Add("CBC-MAC", "member", size,
        [object, key, length, in = data, init = block, mac = block]() mutable {
          object->MAC(key, in, length, init, mac);
        });
    Add("retail-MAC", "member", size,
        [object, key, length, in = data, init = block, mac = block]() mutable {
          object->TMAC(key, in, length, init, mac);
        });
  }
  Add("diversify", "member", 8, [object, key, in = block, out = ArrayOf(Data(16))]() mutable {
    object->DiversifyKey(key, in, out);
  });
}

// What comes before a cipher: making an object, and calling a member by name.
void AddCalls() {
  using vandpublic::Variant;
  Add("create-object", "member", 0, [] { benchmark::DoNotOptimize(clsPublic()); });
  constexpr auto kSlot = static_cast<std::size_t>(vandpublic::Member::DES);
  Add("late-bound-DES", "member", 8,
      [object = std::make_shared<clsPublic>(),
       key = Variant(ArrayOf(std::vector<Byte>(kKey, kKey + 8))), in = Variant(ArrayOf(Data(8))),
       length = Variant(Integer{8}), out = Variant(ArrayOf(Data(8)))]() mutable {
        Variant* const arguments[] = {&key, &in, &length, &out};
        vandpublic::InvokeSlot(*object, kSlot, arguments);
      });
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  const auto& set = vandpublic::des::ActiveKernelSet();
  benchmark::AddCustomContext("kernels", set.name);
  for (const bench::Peer* peer : bench::PeersFound()) {
    bench::CheckPeer(*peer);
    bench::AddPeer(*peer);
  }
  bench::AddEngine();
  bench::AddMembers();
  bench::AddCalls();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
