#pragma once

// Dotted quads, as the settings boxes take them. Not every text that passes is a proper address:
// the last octet takes the whole rest, so that "1.2.3.4.5" is valid and ends in 4.

#include <string>

namespace kestrane {

// Consumes `Quad`. `bytReturn` gets the bytes, most significant octet first: 4 of them if
// `DataValid` comes back true. With a dot missing it keeps those made so far, with an octet above
// 255, an octet that does not begin with a digit or a missing last octet it is empty.
void DecodeQuad(std::string& Quad, std::string& bytReturn, bool& DataValid);

// 4 bytes as decimal octets joined with ".".
std::string QuadText(const std::string& bytes);

}  // namespace kestrane
