#include "ui/PaneLayout.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
const auto listWidthKey = u"macMailListWidth"_s;
} // namespace

double maximumListWidth(double contentWidth) {
    return std::max(contentWidth - PaneLayout::messageMinimum - PaneLayout::dividerWidth, PaneLayout::listMinimum);
}

double heldListWidth(double width, double maximum) {
    return std::clamp(width, PaneLayout::listMinimum, maximum);
}

double resetListWidth(double maximum) {
    return std::min(PaneLayout::listDefault, maximum);
}

double narrowerListWidth(double width) {
    return std::max(width - PaneLayout::keyStep, PaneLayout::listMinimum);
}

double widerListWidth(double width, double maximum) {
    return std::min(width + PaneLayout::keyStep, maximum);
}

double storedListWidth(const UserDefaults &defaults) {
    return defaults.number(listWidthKey).value_or(PaneLayout::listDefault);
}

void storeListWidth(UserDefaults &defaults, double width) {
    defaults.set(listWidthKey, width);
}
