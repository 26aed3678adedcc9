#include "features/changeover_values.h"

#include <algorithm>

#include "features/changeover_records.h"
#include "screen/screen_helpers.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kMost = 255;

int ValueOf(const TextBox& box) { return std::clamp(IntegerValue(box.Text()), 0, kMost); }

// False if the text was written back: its own change handling has then done the rest.
bool IsPlain(TextBox& box) {
    const std::string plain = std::to_string(ValueOf(box));
    if (box.Text() == plain) return true;
    box.SetText(plain);
    return false;
}

void Compare(TextBox& box, int unit_value) {
    box.SetForeColor(ValueOf(box) == unit_value ? kBlack : kRed);
}

}  // namespace

ChangeoverValues::ChangeoverValues(MainForm& form, Session& session)
    : tab_(form.changeover), session_(session) {
    for (int i = kFirstLive; i <= kLastLive; ++i) {
        tab_.txtCurrent(i).on_change = [this, i] { txtCurrent_Change(i); };
        tab_.scrCurrent(i).on_change = [this, i] { scrCurrent_Change(i); };
    }
    for (int i = 0; i <= kLastStartup; ++i) {
        tab_.txtStartup(i).on_change = [this, i] { txtStartup_Change(i); };
        tab_.scrStartup(i).on_change = [this, i] { scrStartup_Change(i); };
    }
    for (const auto* boxes : {&tab_.txtCurrent, &tab_.txtStartup}) {
        for (TextBox& box : *boxes) {
            box.on_got_focus = [&box] { SelectAllText(box); };
        }
    }
}

void ChangeoverValues::txtCurrent_Change(int index) {
    TextBox& box = tab_.txtCurrent(index);
    if (!IsPlain(box)) return;
    if (!session_.ChangeoverStatus.empty()) {
        Compare(box, LiveValue(session_.ChangeoverStatus, index));
    }
    tab_.scrCurrent(index).SetScrollValue(kMost - ValueOf(box));
}

void ChangeoverValues::scrCurrent_Change(int index) {
    tab_.txtCurrent(index).SetText(std::to_string(kMost - tab_.scrCurrent(index).ScrollValue()));
}

void ChangeoverValues::txtStartup_Change(int index) {
    TextBox& box = tab_.txtStartup(index);
    if (!IsPlain(box)) return;
    if (!startup_record_.empty()) Compare(box, StartupValue(startup_record_, index));
    tab_.scrStartup(index).SetScrollValue(kMost - ValueOf(box));
}

void ChangeoverValues::scrStartup_Change(int index) {
    tab_.txtStartup(index).SetText(std::to_string(kMost - tab_.scrStartup(index).ScrollValue()));
}

void ChangeoverValues::KeepStartupRecord(std::string record) {
    startup_record_ = std::move(record);
    ShowStartup(0, kLastStartup);
}

void ChangeoverValues::KeepWrittenValues(const std::string& values) {
    startup_record_.replace(0, values.size(), values);
    ShowStartup(0, static_cast<int>(values.size()) - 1);
}

// A box that holds its new value already runs no change handling, so the colours are set apart.
void ChangeoverValues::ShowStartup(int first, int last) {
    for (int i = first; i <= last; ++i) {
        TextBox& box = tab_.txtStartup(i);
        box.SetText(std::to_string(StartupValue(startup_record_, i)));
        Compare(box, StartupValue(startup_record_, i));
    }
}

void ChangeoverValues::CopyLiveValues() {
    for (int i = kFirstLive; i <= kLastLive; ++i) {
        tab_.txtCurrent(i).SetText(std::to_string(LiveValue(session_.ChangeoverStatus, i)));
    }
}

void ChangeoverValues::CompareLiveValues() {
    for (int i = kFirstLive; i <= kLastLive; ++i) {
        Compare(tab_.txtCurrent(i), LiveValue(session_.ChangeoverStatus, i));
    }
}

int ChangeoverValues::Live(int index) const { return ValueOf(tab_.txtCurrent(index)); }

int ChangeoverValues::Startup(int index) const { return ValueOf(tab_.txtStartup(index)); }

}  // namespace kestrane
