#pragma once

// The macro program between the editor and the unit's relay board. The directions are named from
// the unit: download reads its program into the editor, upload writes the editor's into it. Both
// are blind: a block that failed has told the operator so, and the next one follows.

#include <functional>
#include <optional>
#include <string>

#include "macro/editor_state.h"
#include "macro/listing.h"
#include "macro/second_byte.h"
#include "macro/status_poll.h"
#include "screen/main_form.h"

namespace kestrane {

// What a download needs of other topics; both read from the unit into the main form's boxes.
struct TransferHooks {
    using ShowProgress = std::function<void(const std::string& text)>;
    // Positions of the picture: outlets 0 to 13, then the inlets 14 and 15.
    using ShowName =
        std::function<void(int position, const std::string& upper, const std::string& lower)>;

    std::function<void(const ShowProgress&)> ReadMacroTriggers;
    std::function<void(const ShowProgress&, const ShowName&)> ReadChannelNames;
};

class Transfer {
  public:
    Transfer(ScriptEditForm& form, MainForm& main_form, Session& session, Link& link,
             EditorState& state, Listing& listing, SecondByte& second_byte, StatusPoll& poll,
             TransferHooks hooks);

    void cmdDownload_Click();
    void cmdupload_Click();
    void upload();
    void timUDColour_Timer();

    // Of an upload under way that has sent a block, what the unit holds so far; else nothing.
    std::optional<std::string> UnitInTheMidst() const;

    // Undoes the doubling in ReplyBuffer.
    void Strip_Escape() { link_.RemoveReplyEscapes(); }

  private:
    bool Begin(const Visit& visit, Button& pressed, Button& other);
    void Download(const Link::Operation& operation, const Visit& visit);
    void Upload(const Link::Operation& operation, const Visit& visit);
    void ShowNames(const Visit& visit);
    void StoreBlock(std::size_t index);
    void End();

    ScriptEditForm& form_;
    MainForm& main_form_;
    Session& session_;
    Link& link_;
    EditorState& state_;
    Listing& listing_;
    SecondByte& second_byte_;
    StatusPoll& poll_;
    TransferHooks hooks_;
    // While an upload runs, the last exchange before it.
    std::optional<std::uint64_t> upload_after_;
};

}  // namespace kestrane
