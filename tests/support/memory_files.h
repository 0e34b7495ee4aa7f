// Files that only grow, in memory.
#pragma once

#include "platform/append_file.h"
#include "support/call_faults.h"

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace corvid {

class MemoryFiles : public AppendFiles {
 public:
  explicit MemoryFiles(CallFaults& faults) : faults_(faults) {}

  std::unique_ptr<AppendFile> open(const std::wstring& path, std::wstring& reason) override {
    const std::lock_guard lock(gate_);
    if (const auto error = faults_.use("openFile")) {
      reason = L"system message " + std::to_wstring(*error);
      return nullptr;
    }
    contents[path];
    return std::make_unique<File>(*this, path);
  }

  std::map<std::wstring, std::string> contents;  // by path
  int openFiles = 0;
  int writes = 0;
  std::atomic<int> overlaps{0};  // appends to a file that another thread appended to meanwhile

 private:
  class File : public AppendFile {
   public:
    File(MemoryFiles& owner, std::wstring path) : owner_(owner), path_(std::move(path)) {
      ++owner_.openFiles;
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() override { --owner_.openFiles; }
    bool append(std::string_view bytes) override {
      if (isBusy_.exchange(true)) ++owner_.overlaps;
      std::this_thread::yield();  // another thread's turn to come in between
      const std::lock_guard lock(owner_.gate_);
      isBusy_ = false;
      if (owner_.faults_.use("appendFile")) return false;
      ++owner_.writes;
      owner_.contents[path_] += bytes;
      return true;
    }

   private:
    MemoryFiles& owner_;
    std::wstring path_;
    std::atomic<bool> isBusy_{false};
  };

  CallFaults& faults_;
  std::mutex gate_;
};

}  // namespace corvid
