// Host hooks: messages, the waiting window and the program directory.
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

void EndWaitingDlg(int) {
  std::function<void()> end;
  {
    std::lock_guard lock(g_hooksMutex);
    end = g_progressHandler.end;
  }
  if (end) end();
}

std::string ProgramDirectory() {
  if (const char* overridden = std::getenv("PETRODB_PROGRAM_DIR"); overridden && *overridden) {
    std::string dir = overridden;
    while (dir.size() > 1 && dir.back() == '/') dir.pop_back();
    return dir;
  }
  std::error_code ec;
  const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec) return std::filesystem::current_path().string();
  return exe.parent_path().string();
}

}  // namespace petrodb
