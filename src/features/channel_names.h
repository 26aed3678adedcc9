#pragma once

// The tab "Channel Names": two lines of up to 8 characters for each inlet and outlet, read from
// and written to the display board. The unit shows new names only once its Ethernet processor has
// been reset.

#include <functional>
#include <string>

#include "link/link.h"

namespace kestrane {

class ChannelNames {
  public:
    // Channels in the order of the macro editor's panel: outlets 0 to 13, then the inlets.
    static constexpr int kOutlets = 14;
    static constexpr int kMain = 14;
    static constexpr int kBackup = 15;

    using ShowProgress = std::function<void(const std::string& text)>;
    using ShowName =
        std::function<void(int channel, const std::string& upper, const std::string& lower)>;

    ChannelNames(MainForm& form, Session& session, Link& link);

    void cmdReadChannelNames_Click();
    void cmdWriteChannelNames_Click();

    // All names for the macro editor, always from the display board at 251. Each goes to
    // `show_name` and to the tab's boxes, what is going on to `progress`. It is a part of the
    // caller's Link::Operation. False if a block failed; the names before it stay shown.
    bool ReadChannelNames(const ShowProgress& progress, const ShowName& show_name);

  private:
    // On the tab, 0x10 at the front of an outlet's block is taken for a rest of the echo.
    enum class LeadingDle { kKeep, kPassOver };

    bool ReadInto(int board, int channel, LeadingDle leading_dle);
    bool ReadAll();
    bool WriteFrom(int channel);
    bool WriteAll();
    void EnableAfterSuccess();

    MainForm& form_;
    NamesTab& tab_;
    Session& session_;
    Link& link_;
};

}  // namespace kestrane
