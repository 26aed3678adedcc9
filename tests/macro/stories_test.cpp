#include "support/stories.h"

#include "support/tool_player.h"

namespace kestrane {

const bool kStories = RegisterStories("macro", PlayOnTool);

}  // namespace kestrane
