#include "support/recording_services.h"

#include <algorithm>
#include <stdexcept>

namespace kestrane {

BoxButton RecordingBoxes::Show(const std::string& title, const std::string& text,
                               const std::vector<BoxButton>& buttons) {
    shown_.push_back({title, text, buttons});
    if (while_open_) while_open_();
    if (buttons.empty()) throw std::logic_error("a box without buttons: " + text);
    if (answers_.empty()) return buttons.front();
    const BoxButton answer = answers_.front();
    answers_.pop_front();
    if (std::find(buttons.begin(), buttons.end(), answer) == buttons.end()) {
        throw std::logic_error("the queued answer is no button of the box: " + text);
    }
    return answer;
}

std::string ScriptedFiles::Ask(const Request& request) {
    asked_.push_back(request);
    if (paths_.empty()) return "";
    std::string path = std::move(paths_.front());
    paths_.pop_front();
    return path;
}

FileStore::Content MemoryDisk::Read(const std::string& path) {
    const auto file = files.find(path);
    if (const auto reason = WhyNotWritable(path)) return {{}, reason};
    if (file == files.end()) return {{}, "No such file or directory"};
    return {file->second, {}};
}

std::optional<std::string> MemoryDisk::Replace(const std::string& path, std::string_view content,
                                               Readers readers) {
    if (const auto reason = WhyNotWritable(path)) return reason;
    files[path] = content;
    if (readers == Readers::kOwner) owner_only.insert(path);
    return {};
}

std::optional<std::string> MemoryDisk::WhyNotWritable(const std::string& path) {
    const auto fault = faults.find(path);
    if (fault == faults.end()) return {};
    return fault->second;
}

std::optional<std::string> MemoryDisk::MakeFolder(const std::string& path) {
    return WhyNotWritable(path);
}

void SeededRandom::Seed() {
    ++seedings_;
    engine_.seed(static_cast<std::uint64_t>(seedings_));
}

double SeededRandom::Draw() {
    if (!queued_.empty()) {
        const double draw = queued_.front();
        queued_.pop_front();
        return draw;
    }
    // 53 bits fill a double exactly, so that the draw stays below 1.
    return static_cast<double>(engine_() >> 11) * 0x1.0p-53;
}

std::uint32_t VirtualClock::TickCount() const {
    return offset_ + static_cast<std::uint32_t>(time_.Now().count());
}

void VirtualClock::SetTickCount(std::uint32_t ticks) {
    offset_ = ticks - static_cast<std::uint32_t>(time_.Now().count());
}

}  // namespace kestrane
