// The stories of one folder, played on a whole tool; compiled once for each such folder.

#include "support/stories.h"
#include "support/tool_player.h"

namespace kestrane {

const bool kStories = RegisterStories(KESTRANE_STORIES, PlayOnTool);

}  // namespace kestrane
