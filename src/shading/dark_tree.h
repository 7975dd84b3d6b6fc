#pragma once

#include <string>

namespace orv {

// Takes the tweaks of the DarkTree shader file that the string parameter DarkTreeShader names into
// the call: captions into ColorTweak1Name, FloatTweak1Name and so on, default values into
// ColorTweak1, FloatTweak1 ... as far as the call has these parameters. Nothing happens without
// that parameter or file. Of either kind 200 tweaks are taken at most, and no file of more than 16
// MB; captions as TextFromBytes and CallTextOf say.
void RefreshDarkTreeTweaks(std::string& callText);

}  // namespace orv
