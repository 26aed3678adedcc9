#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "security/mod_common.h"
#include "security/sha_algorithm.h"

namespace kestrane {
namespace {

std::string DigestOf(std::string_view message) {
    SHAAlgorithm algorithm;
    return algorithm.SHA256FromString(message);
}

TEST(Sha256, GivesThePublishedDigests) {
    EXPECT_EQ(DigestOf(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(DigestOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(DigestOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(DigestOf("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmno"
                       "ijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu"),
              "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1");
    EXPECT_EQ(DigestOf(std::string(1000000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

// Byte i is 7 i + 3, so that a byte in the wrong place shows.
TEST(Sha256, PadsAroundTheBlockEdges) {
    const std::pair<int, const char*> digests[] = {
        {1, "084fed08b978af4d7d196a7446a86b58009e636b611db16211b65a9aadff29c5"},
        {3, "6ab0dba1f4f1dfbb37b4f9eeb092c09fca4900ad32bdcd147d8dde35d6c87c35"},
        {55, "e7313d333c272e639f790978283f9eb392e843d0f29b7016828bb1daa4aac70b"},
        {56, "4324d65f3c103567f5589c710bc08f8523f929a9272e3af36fc968e52abc6c27"},
        {57, "35df609437dcfea3279283ab79fd554e2bf78f8f7ae2de532d8ee300b09e8f73"},
        {63, "81c80242132f230c3bd41b3e63bbcff16107339549214a99614ff26664625055"},
        {64, "39e3d7b6b5d075d37d053ad89b24b41bef4f3c29760c84447cab3f3be1882241"},
        {65, "aacca6ff74fdbb296d165a45cecfa04e5127bc008770fbbdd48006f2d2fae95e"},
        {119, "9ce7368e4daf32341631b492e80359dc9f594b48453cd0dd5bf0b19279cc177e"},
        {120, "7836b787757e95e58b3ca5aec90b1b004e8deba1e50e9675af9cabf1a13a04b5"},
    };
    for (const auto& [length, digest] : digests) {
        std::string message;
        for (int i = 0; i < length; ++i) message.push_back(static_cast<char>(i * 7 + 3));
        EXPECT_EQ(DigestOf(message), digest) << length;
    }
}

TEST(Sha256, TakesCharactersAsBytesAndKeepsLeadingZeroDigits) {
    EXPECT_EQ(DigestOf(std::string("\xE9\xFF\x00\x80", 4)),
              "1f800b9b5ca0b8569ef8e7ff700998513797f31cff1d33e55b213d3953528e56");
    EXPECT_EQ(DigestOf("771"), "0fbc9039145b6449a7765dcc00d3bd8377d93ac8cccda9f0292b5976e6d67c75");
}

TEST(Sha256, AUsedObjectAndAnyReferenceToTheStrategyGiveTheSameDigest) {
    SHAAlgorithm used;
    const std::string before = used.SHA256FromString(std::string(200, 'x'));
    EXPECT_EQ(used.SHA256FromString("abc"), DigestOf("abc"));
    EXPECT_EQ(used.SHA256FromString(std::string(200, 'x')), before);

    const std::uint8_t abc[] = {'a', 'b', 'c'};
    const SHA256Strategy strategy;
    const ISHAStrategy& as_interface = strategy;
    EXPECT_EQ(used.Run(abc, as_interface), DigestOf("abc"));
    EXPECT_EQ(used.Run(abc, as_interface), DigestOf("abc"));
}

// The driver must take start values, rounds and digest from the strategy alone.
class CountingStrategy : public ISHAStrategy {
  public:
    HashWords InitializeHash() const override { return {1, 2, 3, 4, 5, 6, 7, 8}; }
    std::uint32_t Expand(std::span<const std::uint32_t> Words, int lRound) const override {
        return Words[static_cast<std::size_t>(lRound) - 1] + 1;
    }
    void Round(int lRound, HashWords& Hash, std::uint32_t Value) const override {
        Hash[0] += static_cast<std::uint32_t>(lRound);
        Hash[1] = Value;
    }
    std::string Output(const HashWords& Hash) const override {
        return std::to_string(Hash[0]) + "," + std::to_string(Hash[1]) + "," +
               std::to_string(Hash[7]);
    }
    int NumRounds() const override { return 18; }
};

TEST(ShaAlgorithm, RunsAnyStrategy) {
    SHAAlgorithm algorithm;
    const std::uint8_t message[] = {'x'};
    // Rounds 0 to 17 add up to 153; word 15 is the length in bits, 8, and two Expands follow.
    EXPECT_EQ(algorithm.Run(message, CountingStrategy()), "155,12,16");
}

TEST(ModCommon, ShiftsAndRotationsAtTheirEdges) {
    using namespace modCommon;
    EXPECT_EQ(LShift(0x80000001, 0), 0x80000001u);
    EXPECT_EQ(LShift(0x80000001, 31), 0x80000000u);
    EXPECT_EQ(LShift(0xFFFFFFFF, 32), 0u);
    EXPECT_EQ(RShift(0x80000000, 31), 1u) << "zeros come in, not the sign";
    EXPECT_EQ(RShift(0xFFFFFFFF, 32), 0u);
    EXPECT_EQ(RotateRight(0x00000001, 33), 0x80000000u);
    EXPECT_EQ(RotateRight(0x12345678, 32), 0x12345678u);
    EXPECT_EQ(ShiftRight(0x80000000, 32), 0x80000000u) << "the count is taken modulo 32";
    EXPECT_EQ(AddUnsigned(0xFFFFFFFF, 2), 1u);
}

TEST(ModCommon, AShiftCountOutOfRangeOverflows) {
    for (const int bits : {-1, 33, 1000}) {
        EXPECT_THROW(modCommon::LShift(1, bits), std::overflow_error) << bits;
        EXPECT_THROW(modCommon::RShift(1, bits), std::overflow_error) << bits;
    }
}

}  // namespace
}  // namespace kestrane
