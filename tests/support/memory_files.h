// Files that only grow, in memory.
#pragma once

#include "platform/append_file.h"
#include "support/call_faults.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace corvid {

class MemoryFiles : public AppendFiles {
 public:
  explicit MemoryFiles(CallFaults& faults) : faults_(faults) {}

  std::unique_ptr<AppendFile> open(const std::wstring& path, std::wstring& reason) override {
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
      if (owner_.faults_.use("appendFile")) return false;
      ++owner_.writes;
      owner_.contents[path_] += bytes;
      return true;
    }

   private:
    MemoryFiles& owner_;
    std::wstring path_;
  };

  CallFaults& faults_;
};

}  // namespace corvid
