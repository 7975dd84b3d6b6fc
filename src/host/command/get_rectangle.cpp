#include "host/command/get_rectangle.h"

#include <algorithm>
#include <cstdlib>

#include "host/command/get_point.h"
#include "host/document/doc.h"
#include "host/document/view.h"
#include "host/system/text.h"

CRhinoGet::Result CRhinoGetRectangle::GetRectangle() {
  first_.reset();
  view_ = Context().m_doc.ActiveView();
  if (view_ == nullptr) return Have(Result::no_result);
  const ON_Viewport::ScreenPort port = view_->Viewport().VP().GetScreenPort();
  width_ = std::abs(port.right - port.left);
  height_ = std::abs(port.bottom - port.top);
  return Get();
}

std::optional<CRhinoGet::Result> CRhinoGetRectangle::TakeText(const Answer& answer) {
  const std::optional<ON_3dPoint> typed = ParsePoint(answer.Text);
  if (!typed || typed->x < 0 || typed->y < 0 || typed->x > width_ || typed->y > height_) {
    return Refuse(host::Format("A corner is typed as x,y in pixels from 0,0 to %d,%d, not '%s'.",
                               width_, height_, answer.Text.c_str()));
  }
  const Corner corner{static_cast<int>(typed->x), static_cast<int>(typed->y)};
  if (!first_) {
    first_ = corner;
    return std::nullopt;
  }
  const auto [left, right] = std::minmax(first_->x, corner.x);
  const auto [top, bottom] = std::minmax(first_->y, corner.y);
  rectangle_ = {left, top, right, bottom};
  return Result::rectangle;
}

void CRhinoGetRectangle::CompletePrompt(Prompt& prompt) const {
  prompt.Text += first_ ? " (other corner)" : " (first corner)";
}
