#include "filter/catalogue.h"

namespace filter {

std::string_view groupCaption(Group group) {
    constexpr std::array<std::string_view, kGroups.size()> captions{"和值", "个数", "位置", "差值", "遗漏", "红蓝"};
    return captions[static_cast<std::size_t>(group)];
}

const Parameter* findParameter(std::span<const Parameter> catalogue, std::string_view option) {
    for (const Parameter& parameter : catalogue)
        if (parameter.option == option)
            return &parameter;
    return nullptr;
}

const Parameter* parameterAt(std::span<const Parameter> catalogue, int tick) {
    for (const Parameter& parameter : catalogue)
        if (parameter.tick == tick)
            return &parameter;
    return nullptr;
}

} // namespace filter
