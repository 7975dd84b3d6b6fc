#pragma once

#include "pages/document_page.h"

// The pages of the document's properties, in their order: the first is the parent of the others.
namespace orv {

// Orv Main: image, samples, what is rendered and the image's background.
class CDocPageDlg : public DocumentPage {
 public:
  explicit CDocPageDlg(CSceneOutPlugIn& plugIn);
};

// Orv Display: where the image goes, and its channels.
class CDisplayDlg : public DocumentPage {
 public:
  explicit CDisplayDlg(CSceneOutPlugIn& plugIn);
};

// Orv Trace: reflections and what they see behind the scene; depth of field.
class CTraceDlg : public DocumentPage {
 public:
  explicit CTraceDlg(CSceneOutPlugIn& plugIn);
};

// Orv GI: global illumination, its cache and its surroundings.
class CGiDlg : public DocumentPage {
 public:
  explicit CGiDlg(CSceneOutPlugIn& plugIn);
};

// Orv Outline: the ink lines. Writes its keys one by one.
class COutlineDlg : public DocumentPage {
 public:
  explicit COutlineDlg(CSceneOutPlugIn& plugIn);
};

// Orv Animation: sequences.
class CAnimDlg : public DocumentPage {
 public:
  explicit CAnimDlg(CSceneOutPlugIn& plugIn);
};

// Orv Advanced Lighting: caustics.
class AdvancedDlg : public DocumentPage {
 public:
  explicit AdvancedDlg(CSceneOutPlugIn& plugIn);
};

// Orv Interactive: the interactive render. Accepting it sends a live session what changed.
class CTweakDlg : public DocumentPage {
 public:
  explicit CTweakDlg(CSceneOutPlugIn& plugIn);
};

// Orv Bake: the maps that are baked.
class CBakeDlg : public DocumentPage {
 public:
  explicit CBakeDlg(CSceneOutPlugIn& plugIn);
};

// Orv Plugin: what the user keeps across documents. Writes its keys one by one.
class CGenDlg : public DocumentPage {
 public:
  explicit CGenDlg(CSceneOutPlugIn& plugIn);
};

}  // namespace orv
