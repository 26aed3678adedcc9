#include "forms/used_addresses.h"

#include <QMenu>
#include <algorithm>

#include "forms/latin1.h"

namespace kestrane {
namespace {

constexpr std::size_t kMost = 12;

}  // namespace

UsedAddresses::UsedAddresses(Mirror& mirror, MainForm& form, Messages& messages)
    : mirror_(mirror), form_(form) {
    setArrowType(Qt::DownArrow);
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setFixedWidth(fontMetrics().height() + 2);
    setAccessibleName(QStringLiteral("Addresses used in this run"));
    messages.OnConnected([this](const std::string& host, const std::string& port) {
        Remember({host, port});
    });
    connect(this, &QToolButton::clicked, this, [this] { Offer(); });
    Show();
}

void UsedAddresses::Remember(const Address& address) {
    std::erase(used_, address);
    used_.insert(used_.begin(), address);
    if (used_.size() > kMost) used_.pop_back();
}

void UsedAddresses::Show() {
    setEnabled(!used_.empty() && form_.txtCurrentIPAddress.Usable());
    const QString tip =
        used_.empty() ? QStringLiteral("Offers the addresses used in this run, once there are any")
        : isEnabled() ? QStringLiteral("Addresses used in this run (Down)")
                      : QStringLiteral("Disconnect first");
    if (toolTip() != tip) setToolTip(tip);
}

void UsedAddresses::Offer() {
    if (!isEnabled()) return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Address& address : used_) {
        menu->addAction(
            ToQt(address.first + ", port " + address.second).replace(u'&', QLatin1String("&&")),
            this, [this, address] { mirror_.Post([this, address] { Type(address); }); });
    }
    menu->setActiveAction(menu->actions().constFirst());
    menu->popup(mapToGlobal(QPoint(0, height())));
}

void UsedAddresses::Type(const Address& address) {
    Hand& hand = mirror_.hand();
    if (hand.Type(form_.txtCurrentPort, address.second)) return;
    hand.Type(form_.txtCurrentIPAddress, address.first);
}

}  // namespace kestrane
