// Host hooks: messages, the waiting window and the program directory.
#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <mutex>

#include "dbaccess/Messages.h"

namespace petrodb {
namespace {

std::mutex g_hooksMutex;
MessageHandler g_messageHandler;
ProgressHandler g_progressHandler;

void DefaultMessage(MessageStyle, const std::string& text, const std::string& caption) {
  if (caption.empty())
    std::fprintf(stderr, "%s\n", text.c_str());
  else
    std::fprintf(stderr, "%s: %s\n", caption.c_str(), text.c_str());
}

}  // namespace

void SetMessageHandler(MessageHandler handler) {
  std::lock_guard lock(g_hooksMutex);
  g_messageHandler = std::move(handler);
}

void SetProgressHandler(ProgressHandler handler) {
  std::lock_guard lock(g_hooksMutex);
  g_progressHandler = std::move(handler);
}

void ShowMessage(MessageStyle style, const std::string& text, const std::string& caption) {
  MessageHandler handler;
  {
    std::lock_guard lock(g_hooksMutex);
    handler = g_messageHandler;
  }
  if (handler)
    handler(style, text, caption);
  else
    DefaultMessage(style, text, caption);
}

int BeginWaitingDlg(const std::string& text, int) {
  std::function<void(const std::string&)> begin;
  {
    std::lock_guard lock(g_hooksMutex);
    begin = g_progressHandler.begin;
  }
  if (begin) begin(text);
  return 1;
}

void StepWaitingDlg(std::uint64_t done, std::uint64_t total) {
  std::function<void(std::uint64_t, std::uint64_t)> step;
  {
    std::lock_guard lock(g_hooksMutex);
    step = g_progressHandler.step;
  }
  if (step) step(done, total);
}

void EndWaitingDlg(int) {
  std::function<void()> end;
  {
    std::lock_guard lock(g_hooksMutex);
    end = g_progressHandler.end;
  }
  if (end) end();
}

namespace {

bool HoldsTemplates(const std::filesystem::path& dir) {
  std::error_code ec;
  return std::filesystem::is_regular_file(dir / "Projects.mdb", ec);
}

// The directory of the file this code was loaded from: the shared library when
// a host links it, else the program itself.
std::filesystem::path OwnFileDirectory() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&HoldsTemplates), &info) && info.dli_fname && *info.dli_fname) {
    std::error_code ec;
    const auto path = std::filesystem::canonical(info.dli_fname, ec);
    if (!ec) return path.parent_path();
  }
  return {};
}

}  // namespace

std::string ProgramDirectory() {
  if (const char* overridden = std::getenv("PETRODB_PROGRAM_DIR"); overridden && *overridden) {
    std::string dir = overridden;
    while (dir.size() > 1 && dir.back() == '/') dir.pop_back();
    return dir;
  }
  std::error_code ec;
  const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  const std::filesystem::path program = ec ? std::filesystem::current_path() : exe.parent_path();
  // An installed program or library keeps the templates in ../share/petrodb;
  // a build tree keeps them beside the program.
  if (HoldsTemplates(program)) return program.string();
  for (const auto& base : {program, OwnFileDirectory()}) {
    if (base.empty()) continue;
    const auto shared = (base.parent_path() / "share" / "petrodb").lexically_normal();
    if (HoldsTemplates(shared)) return shared.string();
  }
  return program.string();
}

}  // namespace petrodb
