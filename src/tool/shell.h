#pragma once

// The application shell: form load, the tab click, the keys of the main form, the end.

#include "link/link.h"

namespace kestrane {

class Shell {
  public:
    Shell(MainForm& form, Session& session, Link& link);

    void Form_Load();
    void SSTab1_Click();
    void Form_KeyDown(int code);
    // Ends the program at once, the socket closed first.
    void Form_Unload();

  private:
    void EnableFramesOfTab(int tab);

    MainForm& form_;
    Session& session_;
    Link& link_;
};

}  // namespace kestrane
