#include "security/sha_algorithm.h"

namespace kestrane {
namespace {

constexpr std::size_t kBlockWords = 16;
constexpr std::size_t kBlockBytes = 4 * kBlockWords;

std::uint32_t BigEndianWord(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | std::uint32_t{bytes[3]};
}

}  // namespace

std::string SHAAlgorithm::SHA256(std::span<const std::uint8_t> Message) {
    if (!strategy) strategy = std::make_unique<SHA256Strategy>();
    return Run(Message, *strategy);
}

std::string SHAAlgorithm::SHA256FromString(std::string_view sMessage) {
    return SHA256({reinterpret_cast<const std::uint8_t*>(sMessage.data()), sMessage.size()});
}

std::string SHAAlgorithm::Run(std::span<const std::uint8_t> Message,
                              const ISHAStrategy& hash_strategy) {
    // Each round of a strategy that is not known passes its eight words through memory, twice the
    // time of the round itself. The one that comes with the engine is known for what it is.
    if (const auto* sha256 = dynamic_cast<const SHA256Strategy*>(&hash_strategy)) {
        return RunWith(Message, *sha256);
    }
    return RunWith(Message, hash_strategy);
}

std::vector<std::uint32_t> SHAAlgorithm::ConvertToWordArray(std::span<const std::uint8_t> Message) {
    const std::size_t length = Message.size();
    std::vector<std::uint32_t> words(((length + 8) / kBlockBytes + 1) * kBlockWords);
    const std::size_t whole_words = length / 4;
    for (std::size_t i = 0; i < whole_words; ++i) words[i] = BigEndianWord(&Message[4 * i]);

    std::uint8_t tail[4] = {};
    for (std::size_t i = 4 * whole_words; i < length; ++i) tail[i % 4] = Message[i];
    tail[length % 4] = 0x80;
    words[whole_words] = BigEndianWord(tail);

    const std::uint64_t bits = std::uint64_t{length} << 3;
    words[words.size() - 2] = static_cast<std::uint32_t>(bits >> 32);
    words[words.size() - 1] = static_cast<std::uint32_t>(bits);
    return words;
}

template <typename Strategy>
std::string SHAAlgorithm::RunWith(std::span<const std::uint8_t> message,
                                  const Strategy& hash_strategy) {
    HashWords hash = hash_strategy.InitializeHash();
    const std::vector<std::uint32_t> words = ConvertToWordArray(message);
    const int rounds = hash_strategy.NumRounds();
    std::vector<std::uint32_t> schedule(static_cast<std::size_t>(rounds));

    for (std::size_t block = 0; block < words.size(); block += kBlockWords) {
        HashWords working = hash;
        for (int round = 0; round < rounds; ++round) {
            const auto t = static_cast<std::size_t>(round);
            schedule[t] =
                t < kBlockWords ? words[block + t] : hash_strategy.Expand(schedule, round);
            hash_strategy.Round(round, working, schedule[t]);
        }
        for (std::size_t i = 0; i < hash.size(); ++i) {
            hash[i] = modCommon::AddUnsigned(hash[i], working[i]);
        }
    }
    return hash_strategy.Output(hash);
}

}  // namespace kestrane
