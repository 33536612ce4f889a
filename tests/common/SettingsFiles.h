#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantMap>

// The file's bytes; empty when it cannot be read.
QByteArray fileBytes(const QString& path);
// Every key and value a fresh QSettings reader sees in the INI file at `path`.
QVariantMap iniValues(const QString& path);
