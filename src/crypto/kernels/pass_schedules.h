// The key schedules of a job.
#ifndef VANDPUBLIC_CRYPTO_KERNELS_PASS_SCHEDULES_H
#define VANDPUBLIC_CRYPTO_KERNELS_PASS_SCHEDULES_H

#include "crypto/kernels/cipher_job.h"
#include "crypto/kernels/local_wipe.h"

namespace vandpublic::des {
namespace {

// A schedule for each pass of a job, wiped at the end. The last pass of triple DES with two keys is
// the first one again and shares its schedule.
//
// `Keys` is a schedule as a kernel has it, with `void Fill(const Pass&)`.
template <class Keys>
class PassSchedules {
 public:
  explicit PassSchedules(const PassList& passes) {
    for (int p = 0; p < passes.count; ++p) {
      const Pass& pass = passes.pass[p];
      const bool again =
          p == 2 && pass.key == passes.pass[0].key && pass.encipher == passes.pass[0].encipher;
      order_[p] = again ? order_[0] : &keys_[used_++];
      if (!again) order_[p]->Fill(pass);
    }
  }
  PassSchedules(const PassSchedules&) = delete;
  PassSchedules& operator=(const PassSchedules&) = delete;
  ~PassSchedules() {
    for (int p = 0; p < used_; ++p)
      WipeLocal(&keys_[p], sizeof keys_[p]);
  }

  const Keys& operator[](int pass) const { return *order_[pass]; }

 private:
  Keys keys_[kMostPasses];
  Keys* order_[kMostPasses];
  int used_ = 0;
};

}  // namespace
}  // namespace vandpublic::des

#endif
