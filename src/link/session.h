#pragma once

// The state of a session, shared by every topic. It is lost when the program ends; nothing of a
// connection is stored on disk.

#include <cstdint>
#include <string>

namespace kestrane {

struct Session {
    // What the reader took from the socket at its last read that found bytes.
    std::string ReplyBuffer;
    // The whole frame last built for sending, marks included.
    std::string FrameBuffer;
    // Whether the last command's reply was accepted; every caller tests it.
    bool CommandDone = false;

    int RelayAddress = 250;
    std::uint8_t DisplayAddress = 251;

    std::string UnitSerialBytes;  // the first 4 bytes of the identity block
    std::string UnitType;         // "CMS", "636" or empty

    bool AdminLoggedIn = false;  // settings may be edited
    int PasswordConfirmed = 0;   // 0: a typed password awaits confirmation
    std::string PasswordEntered;
    int PasswordLevel = 0;  // 1 View, 2 Control, 3 Admin

    bool LinkIsDown = true;
    bool UserDisconnected = false;
    bool ReadButtonArmed = false;
    int ConnectedPortIndex = 0;  // 1 to 3; keeps its value for a connection on another port

    bool ChannelNamesRead = false;
    bool MacroTriggersRead = false;
    bool OneWireRead = false;
    bool ChangeoverRead = false;
    bool OneWireUnsupported = false;
    int LastTabIndex = 0;

    // Which tables on the screen hold what the unit of this connection has given. What was cleared
    // and not read again is not theirs to write.
    struct {
        bool names = false;
        bool triggers = false;
        bool sensor_names = false;
        bool changeover_startup = false;
        bool changeover_live = false;
    } known;

    bool DataValid = false;  // result of the last DecodeQuad
    int IPChanged = 0;
    int PortChanged = 0;

    bool MacroChanged = false;          // the macro editor's exit asks its question
    bool MacroTriggersChanged = false;  // a file import has changed the triggers
    std::string ChangeoverStatus;       // the last valid record of the second status block

    // Opens the editing gate. It compares nothing.
    void CheckPassword() { AdminLoggedIn = true; }
};

}  // namespace kestrane
