// A plug-in module for the tests of loading. ORV_TEST_... tell what is wrong with it.
#include "exports.h"

#ifndef ORV_TEST_SDK
#define ORV_TEST_SDK 200909025
#endif
#ifndef ORV_TEST_RELEASE
#define ORV_TEST_RELEASE 201008125
#endif

ORV_TEST_NUMBER(RhinoPlugInSdkVersion, ORV_TEST_SDK)
ORV_TEST_NUMBER(RhinoPlugInSdkServiceRelease, ORV_TEST_RELEASE)
ORV_TEST_TEXTS_BUT_URL
#ifndef ORV_TEST_NO_URL
ORV_TEST_TEXT(RhinoPlugInUpdateURL)
#endif

#ifndef ORV_TEST_NO_PLUGIN
#include "sample_plugin.h"
namespace {
SamplePlugIn plug_in;
}
#endif
