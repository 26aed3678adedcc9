#include "tool/tool.h"

namespace kestrane {

Tool::Tool(const Platform& platform, ToolOptions tool_options)
    : options(std::move(tool_options)), screen(platform), link(main_form, session, platform) {}

}  // namespace kestrane
