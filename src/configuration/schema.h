#pragma once

// A JSON Schema, draft 2020-12, of configuration files, by which editors complete and check them.

#include <string>

namespace kestrane {

std::string ConfigurationSchema();

}  // namespace kestrane
