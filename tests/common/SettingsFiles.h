#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantMap>

// The file's bytes; empty when it cannot be read.
QByteArray fileBytes(const QString& path);
// Writes `bytes` as the whole file; false when not all of them were written.
bool writeBytes(const QString& path, const QByteArray& bytes);
// Every key and value a fresh QSettings reader sees in the INI file at `path`.
QVariantMap iniValues(const QString& path);
