#pragma once

// One whole tool: the screen, the session, the link, and every topic joined to its controls. Both
// faces, windows and scripts, stand on this.

#include "features/changeover.h"
#include "features/channel_names.h"
#include "features/firmware.h"
#include "features/macro_triggers.h"
#include "features/one_wire.h"
#include "help/help_pages.h"
#include "link/identity.h"
#include "link/supervision.h"
#include "macro/instruction_set.h"
#include "macro/macro_editor.h"
#include "screen/hand.h"
#include "screen/main_form.h"
#include "screen/small_forms.h"
#include "security/password_gate.h"
#include "security/web_security.h"
#include "settings/control_ports.h"
#include "settings/field_editors.h"
#include "settings/network_read.h"
#include "settings/network_write.h"
#include "settings/port_privileges.h"
#include "tool/shell.h"

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
    Link link;
    Hand hand{screen, [this] { return link.connection(); }};
    Supervision supervision{main_form, session, link};
    Shell shell{main_form, session, link};
    Identity identity{main_form, session, link};
    FieldEditors field_editors{main_form, session, link};
    ControlPorts control_ports{main_form, session, link};
    PasswordGate password_gate{main_form, login_form, confirm_form, session, link};
    NetworkRead network_read{main_form, session, link, identity};
    NetworkWrite network_write{main_form, session, link};
    PortPrivileges port_privileges{main_form, session, link};
    WebSecurity web_security{main_form, session, link};
    ChannelNames channel_names{main_form, session, link};
    MacroTriggers macro_triggers{main_form, session, link};
    Changeover changeover{main_form, session, link};
    Firmware firmware{main_form, session, link, options.versions_url};
    MacroEditor macro_editor{script_edit_form, main_form, session, link, EditorHooks()};
    OneWire one_wire{main_form, session, link};
    Help help{main_form, help_form};

  private:
    MacroEditorHooks EditorHooks();
};

}  // namespace kestrane
