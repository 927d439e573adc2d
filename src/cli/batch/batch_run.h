// Rows through a member on all cores, in the order of the input.
#ifndef VANDPUBLIC_CLI_BATCH_BATCH_RUN_H
#define VANDPUBLIC_CLI_BATCH_BATCH_RUN_H

#include <cstdint>
#include <functional>
#include <memory>

#include "cli/batch/batch_plan.h"
#include "cli/batch/row_format.h"
#include "frame/clsPublic.h"

namespace vandpublic {

struct BatchTotals {
  std::uint64_t rows = 0;
  std::uint64_t bad = 0;
};

struct BatchStreams {
  int output = 1;
  int messages = 2;             // one line for each bad row: "vandpublic: line 7: ..."
  bool shows_progress = false;  // on `messages`, twice a second
};

// Runs all rows of the reader and gives their number. Threads take blocks of rows in turn, so that
// memory does not depend on the length of the input. Each has an object that `make_object` gives.
// Raises std::system_error when reading or writing fails; what was written till then is whole rows,
// but for the last.
BatchTotals RunBatch(const BatchPlan& plan, const RowFormat& format, RecordReader& reader,
                     const std::function<std::unique_ptr<clsPublic>()>& make_object, int jobs,
                     const BatchStreams& streams);

}  // namespace vandpublic

#endif
