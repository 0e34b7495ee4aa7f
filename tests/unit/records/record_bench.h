// A record over a world of its own, and what keeps a query from filling one.
#pragma once

#include "basic/text.h"
#include "records/field_array.h"
#include "support/document_bench.h"
#include "support/world.h"

#include <string>

namespace corvid {

template <typename Made>
struct RecordOf {
  World world;
  ThreadState thread{world.environment()};
  Made record{thread};
};

// Fields separated by bars.
inline ReplyFields reply(const std::wstring& fields) { return ReplyFields(split(fields, L"|")); }

struct FailedAnswer {
  Answer answer;
  const char* reason;
};
inline const FailedAnswer kFailedAnswers[] = {
    {{}, "silence"},
    {{"\x15"}, "refused"},
    {{"\x06"}, "merely acknowledged"},
    {blockOf(""), "an empty block"},
    {blockOf("pfError"), "the word for a failed reply"},
};

}  // namespace corvid
