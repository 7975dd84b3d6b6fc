#pragma once

#include "host/command/getter.h"

// Asks for one of the options.
class CRhinoGetOption : public CRhinoGet {
 public:
  explicit CRhinoGetOption(CRhinoCommandContext& context) : CRhinoGet(context) {}

  // option, nothing, cancel or no_result.
  Result GetOption() { return Get(); }
};
