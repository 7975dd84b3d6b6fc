#pragma once

// The ten exports of a module, as a plug-in has them.
#define ORV_TEST_NUMBER(name, value) \
  extern "C" int name() {            \
    return value;                    \
  }
#define ORV_TEST_TEXT(name)          \
  extern "C" const wchar_t* name() { \
    return L"test";                  \
  }

#define ORV_TEST_TEXTS_BUT_URL                    \
  ORV_TEST_TEXT(RhinoPlugInDeveloperOrganization) \
  ORV_TEST_TEXT(RhinoPlugInDeveloperAddress)      \
  ORV_TEST_TEXT(RhinoPlugInDeveloperCountry)      \
  ORV_TEST_TEXT(RhinoPlugInDeveloperPhone)        \
  ORV_TEST_TEXT(RhinoPlugInDeveloperFax)          \
  ORV_TEST_TEXT(RhinoPlugInDeveloperEmail)        \
  ORV_TEST_TEXT(RhinoPlugInDeveloperWebsite)
