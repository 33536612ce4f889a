#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>

#include <map>
#include <vector>

namespace zel {

// A Settings.ini held as the lines it was read from, so that writing it back changes
// only the lines of keys whose values changed.
class IniDocument
{
public:
    explicit IniDocument(QByteArray bytes);

    // Every key with its value; of a key written twice, the line Qt's reader takes.
    QSettings::SettingsMap values() const;

    // The file holding exactly `values`: changed keys rewritten in place, new keys at
    // the end of their group, new groups at the end of the file, the lines of keys not
    // in `values` gone, and with them a section left with only blank lines, header and
    // all; every other byte as it was, and a line end after the last line. False, with
    // `error` set, when a value has no text form.
    bool write(const QSettings::SettingsMap& values, QByteArray& out, QString& error) const;

private:
    struct Line
    {
        qsizetype begin = 0;
        qsizetype end = 0; // before the line end
        qsizetype next = 0; // after the line end
    };
    struct Entry
    {
        QString key; // with its section's group
        qsizetype line = 0;
        qsizetype valueBegin = 0; // after the "="
        std::size_t section = 0;
    };
    struct Section
    {
        QString group; // empty for the keys before any section and for [General]
        qsizetype lastLine = -1; // of its last key, else of its header; -1: none
        qsizetype header = -1; // -1 for the keys before any section
    };

    // True when the line holds a key or a section header.
    bool parseLine(qsizetype begin, qsizetype end);
    bool isBlankLine(qsizetype index) const;
    // Clears in `kept` what is left of each section that loses its last key and holds
    // nothing else but blank lines, with its header.
    void dropEmptiedSections(const std::vector<qsizetype>& entryOfLine, const std::map<qsizetype, QByteArray>& insertAfter,
                             std::vector<char>& kept) const;
    QByteArrayView valueOf(const Entry& entry) const;
    // The entries in the order Qt's reader takes them, the last of a key counting.
    std::vector<std::size_t> readOrder() const;
    QByteArray lineEnd() const;
    // Appends the line of `entry` with its value replaced, keeping the key as typed and
    // a comment after the value.
    bool rewrite(const Entry& entry, const QVariant& value, QByteArray& out) const;

    QByteArray m_bytes;
    qsizetype m_bodyBegin = 0; // after a byte-order mark
    QByteArray m_lineEnd; // of the first line of settings, else the first one in the file
    std::vector<Line> m_lines;
    std::vector<Entry> m_entries;
    std::vector<Section> m_sections;
};

} // namespace zel
