#pragma once

#include <exception>
#include <string>

#include "host/document/app.h"

// Calls into a plug-in or a command. An exception that comes out (the memory may run short) is told
// in the command window, and the call gives `failed`.
template <class Value, class Call>
Value GuardedCall(const std::string& what, Value failed, Call call) {
  try {
    return call();
  } catch (const std::exception& error) {
    RhinoApp().Print(what + " failed: " + error.what() + "\n");
  } catch (...) {
    RhinoApp().Print(what + " failed.\n");
  }
  return failed;
}
