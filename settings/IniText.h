#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QVariant>

class QStringView;

namespace zel::IniText {

// What one value of a Settings.ini line reads as: a text, a list of texts when an
// unquoted comma separates them, or an invalid variant for "@Invalid()". Values in
// "@Variant(...)", "@ByteArray(...)" and the other binary forms stay as their text.
struct Value
{
    QVariant value;
    // Offset of an unquoted ";" that starts a comment, else the view's size.
    qsizetype commentAt = 0;
};

// `raw` is everything after the "=" of a line, without the line end.
Value readValue(QByteArrayView raw);

// A key or section name as typed: "\" separates groups as "/", %XX and %UXXXX are
// characters, other bytes are UTF-8. Leading, trailing and repeated "/" are dropped,
// as QSettings drops them from the keys it is given.
QString readKey(QByteArrayView raw);

// Appends `value` as a line's value that both this reader and Qt's own INI reader read
// back equal. False for a type that has no text form; nothing is appended then.
bool writeValue(const QVariant& value, QByteArray& out);

// Appends `key` as the key part of a line (or a section name): "/" becomes "\", and
// what could be read as syntax is %-encoded.
void writeKey(QStringView key, QByteArray& out);

// True when both read back the same from a file: a list of one text is that text.
bool sameValue(const QVariant& left, const QVariant& right);

} // namespace zel::IniText
