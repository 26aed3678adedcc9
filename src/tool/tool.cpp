#include "tool/tool.h"

namespace kestrane {

Tool::Tool(const Platform& platform, ToolOptions tool_options)
    : options(std::move(tool_options)), screen(platform), link(main_form, session, platform) {}

// What the macro editor needs of topics that it does not know.
MacroEditorHooks Tool::EditorHooks() {
    return {{[this](const auto& progress) { macro_triggers.ReadMacroTriggers(progress); },
             [this](const auto& progress, const auto& show_name) {
                 channel_names.ReadChannelNames(progress, show_name);
             }},
            [this](int row) { macro_triggers.txtMTAddress_LostFocus(row); }};
}

}  // namespace kestrane
