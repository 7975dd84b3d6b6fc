#pragma once

#include <optional>

#include "host/command/getter.h"

class CRhinoView;

// A rectangle in the window of a view, in pixels from its upper left corner.
struct CRhinoWindowRectangle {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// Asks for a rectangle in the active view's window: two corners, each typed as "x,y" in pixels.
class CRhinoGetRectangle : public CRhinoGet {
 public:
  explicit CRhinoGetRectangle(CRhinoCommandContext& context) : CRhinoGet(context) {}

  // rectangle, nothing, option, cancel or no_result (there is no view).
  Result GetRectangle();
  // Left is not right of right, top not below bottom.
  CRhinoWindowRectangle Rectangle() const { return rectangle_; }
  // The view that the rectangle stands in.
  CRhinoView* View() const { return view_; }

 protected:
  std::optional<Result> TakeText(const Answer& answer) override;
  void CompletePrompt(Prompt& prompt) const override;

 private:
  struct Corner {
    int x, y;
  };
  CRhinoView* view_ = nullptr;
  int width_ = 0;
  int height_ = 0;
  std::optional<Corner> first_;
  CRhinoWindowRectangle rectangle_;
};
