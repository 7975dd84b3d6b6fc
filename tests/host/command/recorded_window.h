#pragma once

#include <string>

#include "host/document/app.h"

// Takes what is printed into the command window while it lives.
class RecordedWindow {
 public:
  RecordedWindow() {
    RhinoApp().CommandWindow().SetSink([this](std::string_view text) { text_ += text; });
  }
  ~RecordedWindow() { RhinoApp().CommandWindow().SetSink(nullptr); }
  RecordedWindow(const RecordedWindow&) = delete;
  RecordedWindow& operator=(const RecordedWindow&) = delete;

  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};
