#pragma once

namespace corvane::qt {

/// Draws the hints of empty fields in a paler shade of the fields' own text. Desktop themes with
/// dark fields tend to leave hints at black. Main thread, after the application is made.
void usePlaceholderColourOfFields();

} // namespace corvane::qt
