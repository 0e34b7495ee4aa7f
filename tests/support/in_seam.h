// Whether a double of the system runs, whose own memory no test lets fail.
#pragma once

namespace corvid {

class InSeam {
 public:
  InSeam() { ++depth; }
  InSeam(const InSeam&) = delete;
  InSeam& operator=(const InSeam&) = delete;
  ~InSeam() { --depth; }

  static inline thread_local int depth = 0;
};

}  // namespace corvid
