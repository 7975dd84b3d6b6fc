#pragma once

#include <string_view>

#include "shading/material_attributes.h"

namespace orv {

class CSceneOutPlugIn;

// What shows the preview of a material.
class PreviewFront {
 public:
  virtual ~PreviewFront() = default;
  // Whether there can be a preview: not while an interactive render runs.
  virtual void EnablePreview(bool enable) = 0;
  // The picture is in this file.
  virtual void ShowPicture(std::string_view path) = 0;
};

// Tells the picture's path in the command window.
class PrintedPreview : public PreviewFront {
 public:
  void EnablePreview(bool) override {}
  void ShowPicture(std::string_view path) override;
};

// The preview of the material that a page edits: renders it when it looks another way than before.
class MaterialPreview {
 public:
  // Both outlive the preview.
  MaterialPreview(CSceneOutPlugIn& plugIn, PreviewFront& front);

  // Shows `current` when the preview is switched on. Waits for the renderer, two minutes at most. A
  // preview that fails says nothing and leaves the picture as it is.
  void RenderPreview(const MaterialAttributes& current, bool isSwitchedOn);

 private:
  CSceneOutPlugIn& plug_in_;
  PreviewFront& front_;
  MaterialAttributes last_;
};

}  // namespace orv
