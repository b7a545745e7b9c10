#include "overlay/SelectionRectLayer.h"

namespace corvane {

Drawing SelectionRectLayer::drawing() const {
    if (!path_) {
        return {};
    }
    return {Shape{.path = {.kind = Path::Kind::rectangle, .bounds = *path_},
                  .fill = Colour{ColourName::systemBlue, 0.15},
                  .stroke = Colour{ColourName::systemBlue},
                  .lineWidth = 2,
                  .dashPattern = {6, 4}}};
}

} // namespace corvane
