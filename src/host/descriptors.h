#pragma once

// What a program does first, before it opens anything.

namespace kestrane {

// Opens /dev/null on each of the descriptors 0 to 2 that is closed. Else the first socket would
// take that number, and what is printed would go out on it.
void OpenStandardDescriptors();

}  // namespace kestrane
