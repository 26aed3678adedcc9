#include "features/net_grab.h"

#include <cstdlib>
#include <utility>

namespace kestrane {

void NetGrab::DownloadStart(const std::string& url, int mode) {
    if (url.empty()) return;
    if (Busy()) DownloadCancel();
    duration_ = 0;
    last_failed_ = false;
    start_tick_ = clock_.TickCount();
    http_.Start(url, mode == kForcedRefresh,
                {.progress =
                     [this](std::size_t bytes_so_far) {
                         if (Progress) Progress(bytes_so_far);
                     },
                 .complete =
                     [this](std::string content) {
                         End();
                         bytes_ = std::move(content);
                         if (Complete) Complete(bytes_.size());
                     },
                 .failed =
                     [this](int error_number, const std::string& description) {
                         End();
                         last_failed_ = true;
                         if (Failed) Failed(error_number, description);
                     }});
}

void NetGrab::DownloadCancel() {
    http_.Cancel();
    start_tick_ = 0;
}

// The difference is taken in 32 bits, so that ticks may wrap in between.
void NetGrab::End() {
    const auto difference = static_cast<std::int32_t>(clock_.TickCount() - start_tick_);
    duration_ = static_cast<std::uint32_t>(std::abs(std::int64_t{difference}));
    start_tick_ = 0;
}

bool NetGrab::SaveAs(const std::string& file_name) const {
    return !bytes_.empty() && !disk_.Replace(file_name, bytes_, FileStore::Readers::kEveryone);
}

}  // namespace kestrane
