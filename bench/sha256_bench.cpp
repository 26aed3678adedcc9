// The hash engine against a plain C-style SHA-256, both on the same 16 MiB and built with the
// same flags. The counter "ratio" is the engine's speed over the plain one.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "bars.h"
#include "security/sha_algorithm.h"

namespace {

using std::uint32_t;
using std::uint64_t;
using std::uint8_t;

// clang-format off
const uint32_t K[64] = {
    0x428A2F98, 0x71374491, 0xB5C0FBCF, 0xE9B5DBA5, 0x3956C25B, 0x59F111F1, 0x923F82A4, 0xAB1C5ED5,
    0xD807AA98, 0x12835B01, 0x243185BE, 0x550C7DC3, 0x72BE5D74, 0x80DEB1FE, 0x9BDC06A7, 0xC19BF174,
    0xE49B69C1, 0xEFBE4786, 0x0FC19DC6, 0x240CA1CC, 0x2DE92C6F, 0x4A7484AA, 0x5CB0A9DC, 0x76F988DA,
    0x983E5152, 0xA831C66D, 0xB00327C8, 0xBF597FC7, 0xC6E00BF3, 0xD5A79147, 0x06CA6351, 0x14292967,
    0x27B70A85, 0x2E1B2138, 0x4D2C6DFC, 0x53380D13, 0x650A7354, 0x766A0ABB, 0x81C2C92E, 0x92722C85,
    0xA2BFE8A1, 0xA81A664B, 0xC24B8B70, 0xC76C51A3, 0xD192E819, 0xD6990624, 0xF40E3585, 0x106AA070,
    0x19A4C116, 0x1E376C08, 0x2748774C, 0x34B0BCB5, 0x391C0CB3, 0x4ED8AA4A, 0x5B9CCA4F, 0x682E6FF3,
    0x748F82EE, 0x78A5636F, 0x84C87814, 0x8CC70208, 0x90BEFFFA, 0xA4506CEB, 0xBEF9A3F7, 0xC67178F2,
};
// clang-format on

#define ROTR(x, n) (((x) >> (n)) | ((x) << (32 - (n))))

void PlainBlock(uint32_t state[8], const uint8_t* p) {
    uint32_t w[64];
    for (int t = 0; t < 16; ++t, p += 4) {
        w[t] = (uint32_t)p[0] << 24 | (uint32_t)p[1] << 16 | (uint32_t)p[2] << 8 | p[3];
    }
    for (int t = 16; t < 64; ++t) {
        const uint32_t s0 = ROTR(w[t - 15], 7) ^ ROTR(w[t - 15], 18) ^ (w[t - 15] >> 3);
        const uint32_t s1 = ROTR(w[t - 2], 17) ^ ROTR(w[t - 2], 19) ^ (w[t - 2] >> 10);
        w[t] = s1 + w[t - 7] + s0 + w[t - 16];
    }
    uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
    uint32_t e = state[4], f = state[5], g = state[6], h = state[7];
    for (int t = 0; t < 64; ++t) {
        const uint32_t t1 =
            h + (ROTR(e, 6) ^ ROTR(e, 11) ^ ROTR(e, 25)) + ((e & f) ^ (~e & g)) + K[t] + w[t];
        const uint32_t t2 =
            (ROTR(a, 2) ^ ROTR(a, 13) ^ ROTR(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g, g = f, f = e, e = d + t1, d = c, c = b, b = a, a = t1 + t2;
    }
    state[0] += a, state[1] += b, state[2] += c, state[3] += d;
    state[4] += e, state[5] += f, state[6] += g, state[7] += h;
}

std::string PlainSha256(const uint8_t* message, size_t length) {
    uint32_t state[8] = {0x6A09E667, 0xBB67AE85, 0x3C6EF372, 0xA54FF53A,
                         0x510E527F, 0x9B05688C, 0x1F83D9AB, 0x5BE0CD19};
    size_t done = 0;
    for (; length - done >= 64; done += 64) PlainBlock(state, message + done);
    uint8_t tail[128] = {};
    const size_t rest = length - done;
    memcpy(tail, message + done, rest);
    tail[rest] = 0x80;
    const size_t tail_length = rest < 56 ? 64 : 128;
    for (size_t i = 0; i < 8; ++i) {
        tail[tail_length - 1 - i] = (uint8_t)((uint64_t)length * 8 >> (8 * i));
    }
    for (size_t i = 0; i < tail_length; i += 64) PlainBlock(state, tail + i);
    char text[65];
    for (int i = 0; i < 8; ++i) snprintf(text + 8 * i, 9, "%08x", state[i]);
    return text;
}

const std::vector<uint8_t>& Message() {
    static const std::vector<uint8_t> message = [] {
        std::vector<uint8_t> bytes(16u << 20);
        uint32_t seed = 1;
        for (uint8_t& byte : bytes) byte = (uint8_t)((seed = seed * 1664525 + 1013904223) >> 24);
        return bytes;
    }();
    return message;
}

template <typename Work>
double SecondsOf(const Work& work) {
    const double begin = kestrane::CpuSeconds();
    benchmark::DoNotOptimize(work());
    return kestrane::CpuSeconds() - begin;
}

// Engine and plain code take turns, so that a slow moment of the machine meets both.
void RunEngine(benchmark::State& state, bool through_interface) {
    kestrane::SHAAlgorithm algorithm;
    const kestrane::SHA256Strategy strategy;
    const auto plain = [] { return PlainSha256(Message().data(), Message().size()); };
    const auto engine = [&] {
        return through_interface ? algorithm.Run(Message(), strategy) : algorithm.SHA256(Message());
    };
    if (engine() != plain()) {
        state.SkipWithError("the digests differ");
        return;
    }
    double best_plain = 1e9;
    double best_engine = 1e9;
    for (auto _ : state) {
        best_plain = std::min(best_plain, SecondsOf(plain));
        best_engine = std::min(best_engine, SecondsOf(engine));
    }
    state.counters["ratio"] = best_plain / best_engine;
}

void BM_SHAAlgorithm(benchmark::State& state) { RunEngine(state, false); }
BENCHMARK(BM_SHAAlgorithm)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_RunThroughTheInterface(benchmark::State& state) { RunEngine(state, true); }
BENCHMARK(BM_RunThroughTheInterface)->Unit(benchmark::kMillisecond)->Iterations(5);

// One key press in a password box hashes all three levels.
void BM_RehashOfThreeLevels(benchmark::State& state) {
    kestrane::SHAAlgorithm algorithm;
    const std::string password(48, 'p');
    for (auto _ : state) {
        for (int level = 0; level < 3; ++level) {
            benchmark::DoNotOptimize(algorithm.SHA256FromString(password));
        }
    }
}
BENCHMARK(BM_RehashOfThreeLevels)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    using kestrane::Bar;
    return kestrane::RunWithBars(
        argc, argv,
        {{"BM_SHAAlgorithm", "ratio", Bar::Side::kAtLeast, 0.8},
         {"BM_RunThroughTheInterface", "ratio", Bar::Side::kAtLeast, 0.8}});
}
