#pragma once

class QWidget;

namespace zel {

class ZelControlCenter;

// The widget registerSettingsPanel() puts its pages in. A page built with it as parent
// takes its style sheets once; one moved in after it was built is styled again, whole,
// which costs more than building it.
QWidget* pageHost(const ZelControlCenter& controlCenter);

} // namespace zel
