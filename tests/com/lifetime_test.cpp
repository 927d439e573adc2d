// What keeps the DLL loaded, many objects, and objects on several threads.
#include <array>
#include <atomic>
#include <functional>
#include <numeric>
#include <thread>

#include "com/guids.h"
#include "com/server_fixture.h"

namespace vandpublic {
namespace {

HRESULT CanUnload() { return EntryPoint<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")(); }

class Lifetime : public testing::Test {
 protected:
  Lifetime() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~Lifetime() override { CoUninitialize(); }
};

TEST_F(Lifetime, the_dll_may_go_when_nothing_of_it_is_left) {
  ASSERT_EQ(CanUnload(), S_OK);
  {
    const auto factory = MakeFactory();
    EXPECT_EQ(CanUnload(), S_FALSE);
  }
  EXPECT_EQ(CanUnload(), S_OK);
  {
    const auto object = MakeObject();
    EXPECT_EQ(CanUnload(), S_FALSE);
  }
  EXPECT_EQ(CanUnload(), S_OK);
  MakeFactory()->LockServer(TRUE);
  EXPECT_EQ(CanUnload(), S_FALSE);
  MakeFactory()->LockServer(FALSE);
  EXPECT_EQ(CanUnload(), S_OK);
}

TEST_F(Lifetime, only_its_own_class_is_made_and_never_aggregated) {
  const auto get_class =
      EntryPoint<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*)>("DllGetClassObject");
  void* made = &made;
  EXPECT_EQ(get_class(kInterfaceGuid, IID_IClassFactory, &made), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(made, nullptr);
  EXPECT_EQ(get_class(kClassGuid, IID_IDispatch, &made), E_NOINTERFACE);
  EXPECT_EQ(get_class(kClassGuid, IID_IClassFactory, nullptr), E_POINTER);
  const auto factory = MakeFactory();
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &made), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, &made), E_NOINTERFACE);
  EXPECT_EQ(made, nullptr);
  EXPECT_EQ(CanUnload(), S_FALSE);  // the factory, and no object that nobody has
}

TEST_F(Lifetime, ten_thousand_objects_live_at_once) {
  std::vector<ComPointer<_clsPublic>> objects(10000);
  const auto factory = MakeFactory();
  for (auto& object : objects) {
    ASSERT_EQ(factory->CreateInstance(nullptr, kInterfaceGuid,
                                      reinterpret_cast<void**>(object.Receive())),
              S_OK);
    object->put_DebugMode(DEBUG_MODE_OFF);
  }
  LONG sum = 0;
  Text hex(L"2");
  for (const auto& object : objects) {
    LONG number = 0;
    object->HexToDec(hex, &number);
    sum += number;
  }
  EXPECT_EQ(sum, 20000);
}

SIZE_T UsedIn(HANDLE heap) {
  SIZE_T used = 0;
  PROCESS_HEAP_ENTRY entry{};
  HeapLock(heap);
  while (HeapWalk(heap, &entry)) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) used += entry.cbData;
  }
  HeapUnlock(heap);
  return used;
}

// In all heaps: the C library and COM have their own.
SIZE_T UsedMemory() {
  std::array<HANDLE, 64> heaps{};
  const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  return std::transform_reduce(heaps.begin(), heaps.begin() + count, SIZE_T{0}, std::plus<>(),
                               &UsedIn);
}

void MakeMany(int count) {
  const auto factory = MakeFactory();
  for (int i = 0; i < count; ++i) {
    ComPointer<IUnknown> object;
    factory->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(object.Receive()));
  }
}

TEST_F(Lifetime, a_million_objects_come_and_go_without_a_trace) {
  MakeMany(1000);
  const SIZE_T before = UsedMemory();
  MakeMany(1000000);
  const SIZE_T after = UsedMemory();
  EXPECT_LT(after, before + 100000);
  EXPECT_EQ(CanUnload(), S_OK);
}

TEST_F(Lifetime, failing_calls_leave_nothing_behind) {
  const auto object = MakeObject();
  object->put_DebugMode(DEBUG_MODE_OFF);
  Text text(L"G");
  const auto fail = [&] {
    for (int i = 0; i < 1000; ++i) {
      LONG number = 0;
      object->HexToDec(text, &number);
      Call(*object.get(), L"HexToDec", {Borrowed(text)});
      SetErrorInfo(0, nullptr);
    }
  };
  fail();
  const SIZE_T before = UsedMemory();
  for (int i = 0; i < 20; ++i)
    fail();
  EXPECT_LT(UsedMemory(), before + 20000);
}

// An object of its own in an apartment of its own.
void WorkInApartment(std::atomic<int>& done) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  {
    const auto object = MakeObject();
    object->put_DebugMode(DEBUG_MODE_OFF);
    Text hex(L"FF");
    Text wrong(L"G");
    for (int i = 0; i < 2000; ++i) {
      LONG number = 0;
      const bool right = SUCCEEDED(object->HexToDec(hex, &number)) && number == 255;
      const bool refused = FAILED(object->HexToDec(wrong, &number));
      if (right && refused) ++done;
    }
  }
  CoUninitialize();
}

TEST_F(Lifetime, objects_in_two_apartments_do_not_disturb_each_other) {
  std::atomic<int> done{0};
  std::thread first(WorkInApartment, std::ref(done));
  std::thread second(WorkInApartment, std::ref(done));
  first.join();
  second.join();
  EXPECT_EQ(done, 4000);
  EXPECT_EQ(CanUnload(), S_OK);
}

}  // namespace
}  // namespace vandpublic
