#pragma once

// A button beside the address box that offers the addresses this run has connected to. They are
// kept in memory only.

#include <QToolButton>
#include <string>
#include <utility>
#include <vector>

#include "editing/messages.h"
#include "forms/mirror.h"
#include "screen/main_form.h"

namespace kestrane {

class UsedAddresses : public QToolButton {
  public:
    UsedAddresses(Mirror& mirror, MainForm& form, Messages& messages);

    // The latest first; the chosen one is typed into the boxes for address and port.
    void Offer();
    // Whether there is something to offer now.
    void Show();

  private:
    using Address = std::pair<std::string, std::string>;  // host and port

    void Remember(const Address& address);
    void Type(const Address& address);

    Mirror& mirror_;
    MainForm& form_;
    std::vector<Address> used_;
};

}  // namespace kestrane
