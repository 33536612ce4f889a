#pragma once

#include <QLatin1String>
#include <QString>
#include <QVariant>
#include <QtGlobal>

#include <optional>

class QSettings;

namespace zel::PanelDefaults {

// The registered default text of `key`; nothing when nobody registered the key.
std::optional<QString> text(QLatin1String key);

// Each overwrites `field` with the registered default of `key`, converted to the
// field's type: base-10 integer, double, or exactly "true" for a Boolean. A key that
// nobody registered leaves `field` alone: a page fills its default model from its
// widgets first, so that Reset never invents a value it was not given.
void assign(QString& field, QLatin1String key);
void assign(int& field, QLatin1String key);
void assign(quint64& field, QLatin1String key);
void assign(double& field, QLatin1String key);
void assign(bool& field, QLatin1String key);

// What a page shows for `key`: the stored value, or, where no value is stored (another
// program removed it), the registered default that the next start's validation pass
// stores. Invalid when neither exists.
QVariant storedOrDefault(const QSettings& settings, QLatin1String key);

} // namespace zel::PanelDefaults
