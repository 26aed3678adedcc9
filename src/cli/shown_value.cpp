#include "cli/shown_value.h"

#include "console/values.h"
#include "screen/kinds.h"
#include "text/text.h"

namespace kestrane {

std::string ShownValue(const Control& control) {
    const Value value = control.Properties().front().second;
    if (const auto* text = std::get_if<std::string>(&value)) return ShownText(*text);
    std::string shown = ToJson(value).dump();
    const auto* combo = dynamic_cast<const ComboBox*>(&control);
    if (!combo || combo->ListIndex() < 0) return shown;
    const auto& item = combo->Items()[static_cast<std::size_t>(combo->ListIndex())];
    return shown + " (" + ShownText(item) + ")";
}

}  // namespace kestrane
