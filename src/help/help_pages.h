#pragma once

// The help form "frmHelp": a page of fixed sentences for the tab that is selected when it opens.
// The one thing to know: from index 2 on the pages do not follow the captions of the tabs. It is
// meant so.

#include <string>

#include "screen/main_form.h"
#include "screen/small_forms.h"

namespace kestrane {

struct HelpPage {
    // The opening sentence, then the sentences for each label, joined by line breaks.
    std::string help1;
    std::string help2;
    std::string help3;
};

// The page of a tab of SSTab1, by its index.
HelpPage HelpPageOf(int tab);

class Help {
  public:
    Help(MainForm& form, HelpForm& help);

    // Returns when the help form is closed.
    void cmdHelp_Click();
    void Form_Activate();
    void OKButton_Click();

  private:
    MainForm& form_;
    HelpForm& help_;
};

}  // namespace kestrane
