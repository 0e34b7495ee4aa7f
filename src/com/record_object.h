// The base of the objects through which hosts see records.
#pragma once

#include "com/dispatch_object.h"

#include <memory>
#include <utility>

namespace corvid {

// Shares its record with whoever made it.
template <class Interface, class Class, class Record>
class RecordObject : public DispatchObject<Interface, Class> {
 public:
  explicit RecordObject(std::shared_ptr<Record> record) : record_(std::move(record)) {}

  [[nodiscard]] const std::shared_ptr<Record>& record() const noexcept { return record_; }

 protected:
  [[nodiscard]] auto& values() const noexcept { return record_->values; }

 private:
  std::shared_ptr<Record> record_;
};

}  // namespace corvid
