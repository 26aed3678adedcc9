#pragma once

// One whole tool: the screen, the session, the link, and every topic joined to its controls. Both
// faces, windows and scripts, stand on this.

#include "link/identity.h"
#include "link/shell.h"
#include "link/supervision.h"
#include "macro/insert_buttons.h"
#include "screen/hand.h"
#include "screen/main_form.h"
#include "screen/small_forms.h"

namespace kestrane {

struct ToolOptions {
    // Root of the versions server.
    std::string versions_url = "https://versions.kestrane.example";
};

class Tool {
  public:
    explicit Tool(const Platform& platform, ToolOptions options = {});
    Tool(const Tool&) = delete;
    Tool& operator=(const Tool&) = delete;

    // Loads and shows the main form.
    void Start() { screen.Show(main_form); }

    const ToolOptions options;
    Screen screen;
    Session session;
    MainForm main_form{screen};
    LoginForm login_form{screen};
    ConfirmPasswordForm confirm_form{screen};
    HelpForm help_form{screen};
    ScriptEditForm script_edit_form{screen, InsertButtons()};
    Hand hand{screen};

    Link link;
    Supervision supervision{main_form, session, link};
    Shell shell{main_form, session, link};
    Identity identity{main_form, session, link};
};

}  // namespace kestrane
