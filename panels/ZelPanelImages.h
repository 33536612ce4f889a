#pragma once

class QLabel;
class QString;

namespace zel {

// Shows `resource` in `label` at the label's current pixmap size, from the file that
// suits the screen ("name@2x.png" on a 2x screen). A pixmap set by a Designer form
// only ever loads the 1x file, which a 2x screen blurs.
void showSharpImage(QLabel* label, const QString& resource);

} // namespace zel
