#pragma once

#include "export/rib_writer.h"
#include "settings/ipr_settings.h"

namespace orv {

// How an interactive session shades and how many rays it may trace.
void WriteIprOptions(RibWriter& writer, const IprSettings& iprSettings);

}  // namespace orv
