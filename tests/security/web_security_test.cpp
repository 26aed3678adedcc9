// Salts and digests of the web levels. Their tab stands in web_security.story.

#include "support/tool_on_line.h"

namespace kestrane {
namespace {

std::string HashOf(const std::string& password, const std::string& salt) {
    return UpperCase(SHAAlgorithm().SHA256FromString(password + salt).substr(0, 32));
}

TEST(WebSecurity, SaltBytesRunFrom00ToFE) {
    ToolOnLine tool;
    for (int i = 0; i < 8; ++i) {
        tool.world.random.Queue(0.0);
        tool.world.random.Queue(0.99999999);
    }
    const int seedings = tool.world.random.seedings();
    SecurityTab& tab = tool.form.security;
    tab.txtWebPassword(0).SetText("\xE9 16 characters ");
    EXPECT_EQ(tool.world.random.seedings(), seedings + 1);
    EXPECT_EQ(tab.txtSalt.Text(), "00FE00FE00FE00FE00FE00FE00FE00FE");
    EXPECT_EQ(tab.txtSHA(0).Text(), HashOf("\xE9 16 characters ", tab.txtSalt.Text()));
}

TEST(WebSecurity, ThePasswordWrittenVerifiesAgainstTheUnitsMemory) {
    ToolOnUnit tool;
    tool.ReadSettings();
    EXPECT_EQ(tool.tool.hand.Choose(tool.form.SSTab1, 2).value_or(""), "");
    SecurityTab& tab = tool.form.security;
    tool.Click(tab.cmdReadWBISettings);
    tool.Type(tab.txtWebPassword(0), "eye");
    tool.Click(tab.chkWebSecurityDisable(1));
    tool.Type(tab.txtWebPassword(2), "Boss\xE9");
    tool.Click(tab.cmdWriteWBISettings);
    const unit::BoardMemory& memory = tool.peer.unit().Display();
    const std::string salt = HexText(memory.Read(0x02A0, 16));
    EXPECT_EQ(HexText(memory.Read(0x02B0, 16)), HashOf("eye", salt));
    EXPECT_EQ(memory.Read(0x02C0, 16), std::string(16, '\0'));
    EXPECT_EQ(HexText(memory.Read(0x02D0, 16)), HashOf("Boss\xE9", salt));
}

}  // namespace
}  // namespace kestrane
