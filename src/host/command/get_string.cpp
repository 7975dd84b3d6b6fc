#include "host/command/get_string.h"

void CRhinoGetString::TakePath(std::string_view folder) {
  takes_path_ = true;
  folder_ = folder;
}

CRhinoGet::Result CRhinoGetString::GetString() {
  string_.clear();
  return Get();
}

std::optional<CRhinoGet::Result> CRhinoGetString::TakeText(const Answer& answer) {
  const std::string problem = check_ ? check_(answer.Text) : std::string();
  if (!problem.empty()) return Refuse(problem);
  string_ = answer.Text;
  return Result::string;
}

std::optional<CRhinoGet::Result> CRhinoGetString::TakeEnter() {
  if (!default_) return CRhinoGet::TakeEnter();
  string_ = *default_;
  return Result::string;
}

void CRhinoGetString::CompletePrompt(Prompt& prompt) const {
  prompt.TakesText = true;
  prompt.TakesPath = takes_path_;
  prompt.Folder = folder_;
  prompt.Words = words_;
  if (!default_) return;
  prompt.Default = *default_;
  prompt.AcceptsEnter = true;
}
