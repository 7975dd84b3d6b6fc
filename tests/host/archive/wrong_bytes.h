#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "host/archive/model.h"

// Changes each byte of a document from `first` on in several ways, one at a time, and reads what
// comes of it, which must end with a result: words for an error, none for a success. `check` is
// called with each model; a failure in it tells the byte.
void ReadWithWrongBytes(const std::string& document, std::size_t first,
                        const std::function<void(const ONX_Model& model)>& check);
