#pragma once

#include "presentation/Drawing.h"
#include "support/Geometry.h"

#include <optional>

namespace corvane {

/// The dashed rectangle of a drag, in the coordinates of the view that shows it.
class SelectionRectLayer {
  public:
    void setPath(std::optional<Rectangle> path) { path_ = path; }

    /// Empty while there is no path.
    Drawing drawing() const;

  private:
    std::optional<Rectangle> path_;
};

} // namespace corvane
