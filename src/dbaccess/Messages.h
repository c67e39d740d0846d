#pragma once
// What operations show the user, routed to the host's handlers.
#include <cstdint>
#include <string>

#include "petrodb/Host.h"

namespace petrodb {

inline constexpr const char* kErrorCaption = "错误信息";

void ShowMessage(MessageStyle style, const std::string& text, const std::string& caption = "");

// An application message box: the text alone.
inline void AfxMessageBox(const std::string& text) { ShowMessage(MessageStyle::Application, text); }
// A plain message box with the caption "错误信息".
inline void ErrorMessageBox(const std::string& text) {
  ShowMessage(MessageStyle::Plain, text, kErrorCaption);
}

// Opens the waiting window with a text; the handle goes to EndWaitingDlg.
int BeginWaitingDlg(const std::string& text, int unused = 0);
void EndWaitingDlg(int handle);
// Tells the host how far long work has come: `done` of `total` units.
void StepWaitingDlg(std::uint64_t done, std::uint64_t total);

}  // namespace petrodb

namespace petrodb {

// A message an operation shows on a given failure: its call and its text.
// The empty message shows nothing.
struct Message {
  MessageStyle style = MessageStyle::Application;
  const char* text = nullptr;
  void Show() const {
    if (text) ShowMessage(style, text, style == MessageStyle::Plain ? kErrorCaption : "");
  }
};
// Shown with AfxMessageBox (the text alone).
constexpr Message AppMessage(const char* text) { return {MessageStyle::Application, text}; }
// Shown with MessageBoxA under the caption "错误信息".
constexpr Message ErrorMessage(const char* text) { return {MessageStyle::Plain, text}; }

}  // namespace petrodb
