#include "preview/report_files.h"

namespace corvid {
namespace {

std::wstring fill(ReportFiles& files, const std::string& bytes) {
  const std::wstring failure = files.write(bytes);
  const std::wstring lateFailure = files.finish();
  return failure.empty() ? lateFailure : failure;
}

}  // namespace

std::wstring saveWhole(ReportFiles& files, const std::wstring& path, std::wstring_view text) {
  const std::string bytes = files.encoded(text);
  const std::wstring beside = path + L".nuevo";
  std::wstring failure = files.create(beside);
  if (!failure.empty()) return failure;
  failure = fill(files, bytes);
  if (failure.empty()) failure = files.putInPlace(beside, path);
  if (!failure.empty()) files.remove(beside);
  return failure;
}

}  // namespace corvid
