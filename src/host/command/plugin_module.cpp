#include "host/command/plugin_module.h"

#include <dlfcn.h>

#include <utility>

#include "host/command/guarded_call.h"
#include "host/command/plugin.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace {

struct NumberExport {
  const char* Name;
  int Expected;
};

constexpr NumberExport kNumberExports[] = {
    {"RhinoPlugInSdkVersion", kRhinoPlugInSdkVersion},
    {"RhinoPlugInSdkServiceRelease", kRhinoPlugInSdkServiceRelease},
};

constexpr const char* kTextExports[] = {
    "RhinoPlugInDeveloperOrganization", "RhinoPlugInDeveloperAddress",
    "RhinoPlugInDeveloperCountry",      "RhinoPlugInDeveloperPhone",
    "RhinoPlugInDeveloperFax",          "RhinoPlugInDeveloperEmail",
    "RhinoPlugInDeveloperWebsite",      "RhinoPlugInUpdateURL",
};

// What is wrong with the module's exports; empty when nothing is.
std::string CheckExports(void* handle) {
  for (const NumberExport& number : kNumberExports) {
    void* address = dlsym(handle, number.Name);
    if (address == nullptr) return host::Format("it does not export %s", number.Name);
    const int found = reinterpret_cast<int (*)()>(address)();
    if (found == number.Expected) continue;
    return host::Format("its %s is %d, and this host needs %d", number.Name, found,
                        number.Expected);
  }
  for (const char* name : kTextExports) {
    void* address = dlsym(handle, name);
    if (address == nullptr) return host::Format("it does not export %s", name);
    if (reinterpret_cast<const wchar_t* (*)()>(address)() == nullptr) {
      return host::Format("its %s gives no text", name);
    }
  }
  return {};
}

std::string LastLoaderError() {
  const char* error = dlerror();
  return error == nullptr ? "unknown error" : error;
}

}  // namespace

void PlugInModule::Close::operator()(void* handle) const {
  dlclose(handle);
}

std::unique_ptr<PlugInModule> PlugInModule::Load(std::string_view path, std::string& error) {
  error = "The plug-in module " + std::string(path) + " can't be used: ";
  // A name without a folder would be searched for in the system's library folders.
  std::error_code no_folder;
  const std::filesystem::path file = std::filesystem::absolute(host::NativePath(path), no_folder);
  if (no_folder) {
    error += no_folder.message() + ".";
    return nullptr;
  }
  static_cast<void>(CRhinoFileExportPlugIn::TakeLastMade());
  Handle handle(GuardedCall("Opening " + std::string(path), static_cast<void*>(nullptr),
                            [&] { return dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL); }));
  CRhinoFileExportPlugIn* plug_in = CRhinoFileExportPlugIn::TakeLastMade();
  if (handle == nullptr) {
    error += LastLoaderError() + ".";
    return nullptr;
  }
  std::string problem = CheckExports(handle.get());
  if (problem.empty() && plug_in == nullptr) problem = "it has no plug-in object";
  if (!problem.empty()) {
    error += problem + ".";
    return nullptr;
  }
  error.clear();
  plug_in->SetPlugInFileName(file.string());
  return std::unique_ptr<PlugInModule>(new PlugInModule(std::move(handle), *plug_in));
}
