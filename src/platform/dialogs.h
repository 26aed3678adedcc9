#pragma once

// Boxes and file dialogs: what the logic asks the operator. Each call pumps events until it is
// answered.

#include <string>
#include <vector>

namespace kestrane {

enum class BoxButton { kOk, kCancel, kYes, kNo };

class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;

    // Shows a box with these buttons, first one the default, and returns the one pressed. Title
    // and text are byte texts; a line break is "\r\n".
    virtual BoxButton Show(const std::string& title, const std::string& text,
                           const std::vector<BoxButton>& buttons) = 0;
};

class FileDialogs {
  public:
    struct Request {
        bool save = false;
        std::string title;
        std::string filter;             // "Kestrane Macro Files (*.sms)|*.sms"
        std::string default_extension;  // "sms"
    };

    virtual ~FileDialogs() = default;

    // The chosen path in the encoding of the file system, empty if the dialog was cancelled.
    virtual std::string Ask(const Request& request) = 0;
};

}  // namespace kestrane
