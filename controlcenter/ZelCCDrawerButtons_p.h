#pragma once

class QAbstractButton;

namespace zel {

// Gives the drawer's header, Reset and Apply buttons their texts, focus and shortcuts.
// The form would translate them under its own name; the library's texts live under
// "ZelControlCenter".
void setUpDrawerButtons(QAbstractButton* header, QAbstractButton* reset, QAbstractButton* apply);

} // namespace zel
