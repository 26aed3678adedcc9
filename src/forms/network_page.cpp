#include "forms/layout.h"
#include "forms/pages.h"

namespace kestrane {
namespace {

constexpr int kQuadColumns = 15;
constexpr int kPortColumns = 6;

FrameView* NetworkSettings(Mirror& mirror, NetworkTab& tab) {
    FrameView* frame = mirror.Make(tab.fraNetworkSettings);
    QGridLayout* grid = GridIn(frame);
    AddField(mirror, grid, 0, 0, tab.lblNetBiosName, tab.txtNetbiosName, 16);
    AddField(mirror, grid, 1, 0, tab.lblUnitLocation, tab.txtUnitLocation);
    AddField(mirror, grid, 2, 0, tab.lblUnitName, tab.txtUnitName);
    grid->setColumnMinimumWidth(2, 2 * kGap);
    grid->addWidget(mirror.Make(tab.lblObtainIPAddress), 0, 3);
    QCheckBox* dhcp = mirror.Make(tab.chkDHCP);
    dhcp->setAccessibleName(QStringLiteral("Obtain IP address by DHCP"));
    grid->addWidget(dhcp, 0, 4);
    mirror.ClickGoesTo(tab.lblObtainIPAddress, tab.chkDHCP);
    grid->addWidget(mirror.Make(tab.chkTimeServerEnable), 1, 3, 1, 2);
    AddField(mirror, grid, 2, 3, tab.lblTimeServerIP, tab.txtTimeServerIP, kQuadColumns);
    grid->setColumnStretch(5, 1);
    return frame;
}

FrameView* FixedSettings(Mirror& mirror, NetworkTab& tab) {
    FrameView* frame = mirror.Make(tab.fraFixedIPSettings);
    QGridLayout* grid = GridIn(frame);
    AddField(mirror, grid, 0, 0, tab.lblIPAddress, tab.txtIPAddress, kQuadColumns);
    AddField(mirror, grid, 1, 0, tab.lblSubnetMask, tab.txtSubnetMask, kQuadColumns);
    AddField(mirror, grid, 2, 0, tab.lblDefaultGateway, tab.txtDefaultGateway, kQuadColumns);
    grid->setColumnMinimumWidth(2, 2 * kGap);
    AddField(mirror, grid, 0, 3, tab.lblPrimaryDNS, tab.txtPrimaryDNS, kQuadColumns);
    AddField(mirror, grid, 1, 3, tab.lblSecondaryDNS, tab.txtSecondaryDNS, kQuadColumns);
    grid->setColumnStretch(5, 1);
    return frame;
}

// For screen readers: "Port A attack limit".
void NamePort(int port, std::initializer_list<std::pair<QWidget*, const char*>> widgets) {
    for (const auto& [widget, what] : widgets) {
        widget->setAccessibleName(QStringLiteral("Port %1 %2")
                                      .arg(QChar(static_cast<char16_t>(u'A' + port)))
                                      .arg(QLatin1String(what)));
    }
}

// A row for each port: enable, number, key, key generator, attack limit, key count.
FrameView* ControlPorts(Mirror& mirror, NetworkTab& tab) {
    FrameView* frame = mirror.Make(tab.fraTCPports);
    QGridLayout* grid = GridIn(frame);
    grid->addWidget(mirror.Make(tab.lblTcpControlEnable), 0, 1);
    grid->addWidget(mirror.Make(tab.qlblTcpControlPort), 0, 2);
    grid->addWidget(mirror.Make(tab.lblPasswordWarn), 0, 3, 1, 2);
    grid->addWidget(mirror.Make(tab.qlblAttackLimit), 0, 5);
    grid->addWidget(mirror.Make(tab.qlblKeyCounter), 0, 6);
    for (int port = 0; port < 3; ++port) {
        const int row = port + 1;
        grid->addWidget(mirror.Make(tab.Label5(port)), row, 0);
        QCheckBox* enable = mirror.Make(tab.chkTcpControlEnable(port));
        grid->addWidget(enable, row, 1, Qt::AlignCenter);
        TextBoxView* number = mirror.Make(tab.txtTcpControlPort(port), kPortColumns);
        grid->addWidget(number, row, 2);
        // The message that a key is set is longer than a key.
        TextBoxView* key = mirror.Make(tab.txtChaskey(port), 34);
        key->UseFixedPitch();
        grid->addWidget(key, row, 3);
        ButtonView* generate = mirror.Make(tab.cmdChaskeyGen(port));
        grid->addWidget(generate, row, 4);
        TextBoxView* limit = mirror.Make(tab.txtAttackLimit(port), 5);
        grid->addWidget(limit, row, 5);
        TextBoxView* count = mirror.Make(tab.txtKeyCounter(port), 5);
        grid->addWidget(count, row, 6);
        NamePort(port, {{enable, "enable"},
                        {number, "number"},
                        {key, "key"},
                        {generate, "generate a key"},
                        {limit, "attack limit"},
                        {count, "key count"}});
    }
    QHBoxLayout* timeout = Row();
    timeout->addWidget(mirror.Make(tab.lblTcpTimeout));
    TextBoxView* seconds = mirror.Make(tab.txtForceDisconnect, 5);
    seconds->setAccessibleName(QStringLiteral("TCP timeout, seconds"));
    timeout->addWidget(seconds);
    timeout->addWidget(mirror.Make(tab.qLabel60));
    timeout->addStretch(1);
    grid->addLayout(timeout, 4, 0, 1, 4);
    QVBoxLayout* hints = Column();
    hints->setSpacing(2);
    hints->addWidget(mirror.Make(tab.Label61));
    hints->addWidget(mirror.Make(tab.qLabel63));
    grid->addLayout(hints, 4, 4, 1, 3, Qt::AlignRight);
    grid->setColumnStretch(3, 1);
    return frame;
}

FrameView* Snmp(Mirror& mirror, NetworkTab& tab) {
    FrameView* frame = mirror.Make(tab.fraSnmpSettings);
    QGridLayout* grid = GridIn(frame);
    grid->addWidget(mirror.Make(tab.lblSnmpPort), 0, 0, 1, 2);
    TextBoxView* community = mirror.Make(tab.txtCommunity);
    community->setAccessibleName(QStringLiteral("Read community string"));
    grid->addWidget(community, 1, 0, 1, 2);
    AddField(mirror, grid, 2, 0, tab.lblSysContact, tab.txtSysContact);
    grid->setColumnStretch(1, 1);
    return frame;
}

FrameView* GratuitousArp(Mirror& mirror, NetworkTab& tab) {
    FrameView* frame = mirror.Make(tab.fraARP);
    QGridLayout* grid = GridIn(frame);
    QHBoxLayout* kinds = Row();
    for (int i = 0; i < 3; ++i) {
        kinds->addLayout(CheckWithLabel(mirror, tab.chkARP(i), tab.lblARP(i)));
    }
    grid->addLayout(kinds, 0, 0, 1, 2);
    grid->addWidget(mirror.Make(tab.lblARPtime), 1, 0);
    QComboBox* interval = mirror.Make(tab.cmbARPtime);
    interval->setMinimumContentsLength(10);
    interval->setAccessibleName(QStringLiteral("ARP repeat interval"));
    grid->addWidget(interval, 1, 1, Qt::AlignLeft);
    grid->addLayout(CheckWithLabel(mirror, tab.chkARPReset, tab.lblARPReset), 2, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    return frame;
}

FrameView* UnitId(Mirror& mirror, NetworkTab& tab) {
    FrameView* frame = mirror.Make(tab.fraUnitID);
    QGridLayout* grid = GridIn(frame);
    TextBoxView* id = mirror.Make(tab.txtUnitID, 3);
    id->setAccessibleName(QStringLiteral("Unit ID, hexadecimal"));
    grid->addWidget(id, 0, 0);
    grid->addWidget(mirror.Make(tab.cmdUnitID), 0, 1);
    grid->addWidget(mirror.Make(tab.lblUnitID), 1, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    return frame;
}

FrameView* Oled(Mirror& mirror, NetworkTab& tab) {
    FrameView* frame = mirror.Make(tab.fraOledTimeout);
    QGridLayout* grid = GridIn(frame);
    AddField(mirror, grid, 0, 0, tab.lblOledTimeoutText, tab.txtOledTimeout);
    grid->addLayout(CheckWithLabel(mirror, tab.chkIPonOLED, tab.lblIPonOLED), 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    return frame;
}

FrameView* WebBrowser(Mirror& mirror, NetworkTab& tab) {
    FrameView* frame = mirror.Make(tab.fraArmButtons);
    QGridLayout* grid = GridIn(frame);
    grid->addLayout(CheckWithLabel(mirror, tab.chkArmEnable, tab.lblArmButtonsEnable), 0, 0);
    return frame;
}

}  // namespace

QWidget* BuildNetworkPage(Mirror& mirror, NetworkTab& tab) {
    auto* page = new PinnedPage;
    QVBoxLayout* outer = page->content();
    auto* columns = Row();
    columns->setSpacing(kBetweenFrames);

    QVBoxLayout* left = Column();
    left->addWidget(NetworkSettings(mirror, tab));
    left->addWidget(FixedSettings(mirror, tab));
    left->addWidget(ControlPorts(mirror, tab));
    left->addStretch(1);
    QVBoxLayout* right = Column();
    right->addWidget(Snmp(mirror, tab));
    right->addWidget(GratuitousArp(mirror, tab));
    right->addWidget(UnitId(mirror, tab));
    right->addWidget(Oled(mirror, tab));
    right->addWidget(WebBrowser(mirror, tab));
    right->addStretch(1);
    columns->addLayout(left, 1);
    columns->addLayout(right);
    outer->addLayout(columns, 1);

    QHBoxLayout* buttons =
        ButtonRow(mirror, {&tab.cmdReadNetworkSettings, &tab.cmdWriteNetworkSettings});
    buttons->addWidget(mirror.Make(tab.cmdResetEthernet));
    page->Pin(buttons);
    return page;
}

}  // namespace kestrane
