#include "IniDocument.h"

#include "IniText.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <cstring>
#include <map>
#include <numeric>
#include <utility>

namespace zel {

namespace {

constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

// Qt trims keys and section names of every ASCII space, not only of blanks.
bool isSpace(char c)
{
    return isBlank(c) || c == '\v' || c == '\f' || c == '\r' || c == '\n';
}

QByteArrayView trimmed(QByteArrayView text, bool (*space)(char) = isBlank)
{
    while (!text.isEmpty() && space(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && space(text.back()))
        text.chop(1);
    return text;
}

bool isGeneral(QByteArrayView name)
{
    return qstrnicmp(name.data(), name.size(), "general", 7) == 0;
}

// Qt's reader takes "general" in any case as the root group, and a "%" before it as a
// group named by the rest, taken literally.
// Where a ";" outside quotes starts a comment; the text's size when none does.
qsizetype commentStart(QByteArrayView text)
{
    bool quoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == '"')
            quoted = !quoted;
        else if (text[i] == ';' && !quoted)
            return i;
    }
    return text.size();
}

QString groupOf(QByteArrayView name)
{
    name = trimmed(name, isSpace);
    if (isGeneral(name))
        return QString();
    if (name.startsWith('%') && isGeneral(name.sliced(1)))
        return QString::fromLatin1(name.sliced(1));
    return IniText::readKey(name);
}

void appendSectionHeader(const QString& group, QByteArray& out)
{
    out.append('[');
    if (group.isEmpty()) {
        out.append("General");
    } else if (const QByteArray name = group.toUtf8(); isGeneral(name)) {
        // Qt's writer spells every case "%General", which reads back as another group.
        out.append('%');
        out.append(name);
    } else {
        IniText::writeKey(group, out);
    }
    out.append(']');
}

} // namespace

IniDocument::IniDocument(QByteArray bytes)
    : m_bytes(std::move(bytes))
{
    if (m_bytes.startsWith(ByteOrderMark))
        m_bodyBegin = qsizetype(std::strlen(ByteOrderMark));
    m_sections.push_back(Section());
    const char* const data = m_bytes.constData();
    const qsizetype size = m_bytes.size();
    // New lines end as the file's settings do: a stray carriage return in damaged or
    // pasted text before them is no guide.
    QByteArray firstLineEnd;
    qsizetype at = m_bodyBegin;
    while (at < size) {
        qsizetype end = at;
        while (end < size && data[end] != '\n' && data[end] != '\r')
            ++end;
        qsizetype next = end;
        if (next < size)
            next += (data[next] == '\r' && next + 1 < size && data[next + 1] == '\n') ? 2 : 1;
        m_lines.push_back({at, end, next});
        const bool holdsSettings = parseLine(at, end);
        if (next > end && m_lineEnd.isEmpty()) {
            if (holdsSettings)
                m_lineEnd = m_bytes.mid(end, next - end);
            else if (firstLineEnd.isEmpty())
                firstLineEnd = m_bytes.mid(end, next - end);
        }
        at = next;
    }
    if (m_lineEnd.isEmpty())
        m_lineEnd = firstLineEnd;
}

bool IniDocument::parseLine(qsizetype begin, qsizetype end)
{
    const qsizetype line = qsizetype(m_lines.size()) - 1;
    QByteArrayView text = trimmed(QByteArrayView(m_bytes).sliced(begin, end - begin));
    if (text.isEmpty() || text.front() == ';')
        return false;
    // As in Qt's reader, a ";" outside quotes ends the line in a key or a section name
    // too, and a "#" starts no comment.
    const qsizetype comment = commentStart(text);
    if (text.front() == '[') {
        text = trimmed(text.first(comment), isSpace);
        const qsizetype close = text.indexOf(']');
        const QByteArrayView name = text.sliced(1, (close < 0 ? text.size() : close) - 1);
        m_sections.push_back({groupOf(name), line, line});
        return true;
    }
    const qsizetype equals = text.indexOf('=');
    if (equals < 0 || comment < equals)
        return false;
    const QString key = IniText::readKey(trimmed(text.first(equals), isSpace));
    if (key.isEmpty())
        return false;
    Section& section = m_sections.back();
    const qsizetype valueBegin = (text.constData() - m_bytes.constData()) + equals + 1;
    m_entries.push_back(
        {section.group.isEmpty() ? key : section.group + QLatin1Char('/') + key, line, valueBegin, m_sections.size() - 1});
    section.lastLine = line;
    return true;
}

bool IniDocument::isBlankLine(qsizetype index) const
{
    const Line& line = m_lines[std::size_t(index)];
    return trimmed(QByteArrayView(m_bytes).sliced(line.begin, line.end - line.begin), isSpace).isEmpty();
}

void IniDocument::dropEmptiedSections(const std::vector<qsizetype>& entryOfLine,
                                      const std::map<qsizetype, QByteArray>& insertAfter, std::vector<char>& kept) const
{
    const auto lineCount = qsizetype(m_lines.size());
    std::vector<char> emptiedHeader(m_lines.size(), 0);
    for (std::size_t index = 0; index < m_sections.size(); ++index) {
        const Section& section = m_sections[index];
        const qsizetype first = std::max<qsizetype>(section.header, 0);
        const qsizetype last = index + 1 < m_sections.size() ? m_sections[index + 1].header : lineCount;
        // Anything a person wrote besides keys and blank lines keeps the section,
        // header and all; so does a section that had no key to lose.
        bool hadKeys = false;
        bool keepsSomething = false;
        for (qsizetype line = first; line < last && !keepsSomething; ++line) {
            const Line& bytes = m_lines[std::size_t(line)];
            if (insertAfter.count(line) > 0) {
                keepsSomething = true;
            } else if (line == section.header) {
                const QByteArrayView text = trimmed(QByteArrayView(m_bytes).sliced(bytes.begin, bytes.end - bytes.begin));
                const qsizetype close = text.indexOf(']');
                keepsSomething = close >= 0 && !trimmed(text.sliced(close + 1), isSpace).isEmpty();
            } else if (entryOfLine[std::size_t(line)] >= 0) {
                hadKeys = true;
                keepsSomething = kept[std::size_t(line)];
            } else {
                keepsSomething = !isBlankLine(line);
            }
        }
        if (!hadKeys || keepsSomething)
            continue;
        std::fill(kept.begin() + first, kept.begin() + last, 0);
        if (section.header >= 0)
            emptiedHeader[std::size_t(section.header)] = 1;
    }
    // A section that went from the end takes along the blank lines that set it apart.
    bool afterEmptied = false;
    for (qsizetype line = lineCount - 1; line >= 0 && insertAfter.count(line) == 0; --line) {
        if (!kept[std::size_t(line)])
            afterEmptied = afterEmptied || emptiedHeader[std::size_t(line)];
        else if (afterEmptied && isBlankLine(line))
            kept[std::size_t(line)] = 0;
        else
            break;
    }
}

QByteArrayView IniDocument::valueOf(const Entry& entry) const
{
    return QByteArrayView(m_bytes).sliced(entry.valueBegin, m_lines[std::size_t(entry.line)].end - entry.valueBegin);
}

QByteArray IniDocument::lineEnd() const
{
    if (!m_lineEnd.isEmpty())
        return m_lineEnd;
#ifdef Q_OS_WIN
    return QByteArrayLiteral("\r\n");
#else
    return QByteArrayLiteral("\n");
#endif
}

std::vector<std::size_t> IniDocument::readOrder() const
{
    std::vector<std::size_t> order(m_entries.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    // Qt's reader takes the sections of one name together, in the order of their names,
    // the root ([General] and the keys before any section) first: a key written in two
    // sections ("[A]" k and "[General]" A/k) takes its value from the later name.
    // Usually every name comes once and in that order already.
    std::vector<QString> names;
    names.reserve(m_sections.size());
    for (const Section& section : m_sections)
        names.push_back(section.group.isEmpty() ? QString() : section.group + QLatin1Char('/'));
    if (std::is_sorted(names.begin(), names.end()))
        return order;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return names[m_entries[left].section] < names[m_entries[right].section];
    });
    return order;
}

QSettings::SettingsMap IniDocument::values() const
{
    QSettings::SettingsMap map;
    for (const std::size_t index : readOrder()) {
        const Entry& entry = m_entries[index];
        map.insert(entry.key, IniText::readValue(valueOf(entry)).value);
    }
    return map;
}

bool IniDocument::rewrite(const Entry& entry, const QVariant& value, QByteArray& out) const
{
    const QByteArrayView raw = valueOf(entry);
    qsizetype valueStart = 0;
    while (valueStart < raw.size() && isBlank(raw[valueStart]))
        ++valueStart;
    const qsizetype lineBegin = m_lines[std::size_t(entry.line)].begin;
    out.append(QByteArrayView(m_bytes).sliced(lineBegin, entry.valueBegin - lineBegin + valueStart));
    if (!IniText::writeValue(value, out))
        return false;
    qsizetype comment = IniText::readValue(raw).commentAt;
    if (comment < raw.size()) {
        while (comment > valueStart && isBlank(raw[comment - 1]))
            --comment;
        out.append(raw.sliced(comment));
    }
    return true;
}

bool IniDocument::write(const QSettings::SettingsMap& values, QByteArray& out, QString& error) const
{
    // The line each key is read from, so that both readers see a changed value.
    QHash<QString, qsizetype> readFrom;
    readFrom.reserve(qsizetype(m_entries.size()));
    for (const std::size_t index : readOrder())
        readFrom.insert(m_entries[index].key, qsizetype(index));
    std::vector<qsizetype> entryOfLine(m_lines.size(), -1);
    for (qsizetype index = 0; index < qsizetype(m_entries.size()); ++index)
        entryOfLine[std::size_t(m_entries[std::size_t(index)].line)] = index;
    // The last section of each group that can take a key.
    QHash<QString, qsizetype> sectionOf;
    for (qsizetype index = 0; index < qsizetype(m_sections.size()); ++index) {
        if (m_sections[std::size_t(index)].lastLine >= 0)
            sectionOf.insert(m_sections[std::size_t(index)].group, index);
    }

    const QByteArray newLine = lineEnd();
    const auto failed = [&error](const QString& key) {
        error = QStringLiteral("The value of \"%1\" has no text form for Settings.ini").arg(key);
        return false;
    };

    // New keys, by the line they follow or by the new group they open.
    std::map<qsizetype, QByteArray> insertAfter;
    std::vector<std::pair<QString, QByteArray>> newGroups;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const QString& key = it.key();
        if (readFrom.contains(key))
            continue;
        // The deepest existing group holding the key; a key without a group goes to the
        // keys before the first section or to [General].
        QString group = key;
        qsizetype section = -1;
        for (qsizetype slash = group.lastIndexOf(QLatin1Char('/')); section < 0 && slash > 0;
             slash = group.lastIndexOf(QLatin1Char('/'))) {
            group.truncate(slash);
            section = sectionOf.value(group, -1);
        }
        if (!key.contains(QLatin1Char('/'))) {
            group.clear();
            section = sectionOf.value(group, -1);
        }
        QByteArray line;
        if (section < 0) {
            group = key.section(QLatin1Char('/'), 0, 0);
            if (group == key)
                group.clear();
        }
        IniText::writeKey(group.isEmpty() ? QStringView(key) : QStringView(key).sliced(group.size() + 1), line);
        line.append('=');
        if (!IniText::writeValue(it.value(), line))
            return failed(key);
        line.append(newLine);
        if (section >= 0) {
            insertAfter[m_sections[std::size_t(section)].lastLine].append(line);
        } else if (!newGroups.empty() && newGroups.back().first == group) {
            newGroups.back().second.append(line);
        } else {
            auto existing = std::find_if(newGroups.begin(), newGroups.end(),
                                         [&group](const auto& entry) { return entry.first == group; });
            if (existing != newGroups.end())
                existing->second.append(line);
            else
                newGroups.emplace_back(group, line);
        }
    }

    // The lines that stay: not those of removed keys, nor what is left of a section
    // that lost its last key.
    std::vector<char> kept(m_lines.size(), 1);
    for (const Entry& entry : m_entries) {
        if (!values.contains(entry.key))
            kept[std::size_t(entry.line)] = 0;
    }
    dropEmptiedSections(entryOfLine, insertAfter, kept);

    out.clear();
    out.reserve(m_bytes.size() + m_bytes.size() / 8 + 64);
    out.append(QByteArrayView(m_bytes).first(m_bodyBegin));
    // Keys of a root group the file has none of yet go before its first section, with no
    // header, as in the files the editor makes, rather than under a [General] at the end.
    QByteArray rootLines;
    const auto root = std::find_if(newGroups.begin(), newGroups.end(),
                                   [](const auto& entry) { return entry.first.isEmpty(); });
    if (root != newGroups.end()) {
        rootLines = root->second;
        newGroups.erase(root);
    }
    qsizetype firstHeader = -1;
    for (const Section& section : m_sections) {
        if (section.header >= 0 && (firstHeader < 0 || section.header < firstHeader))
            firstHeader = section.header;
    }
    for (qsizetype index = 0; index < qsizetype(m_lines.size()); ++index) {
        if (index == firstHeader && !rootLines.isEmpty()) {
            out.append(rootLines);
            out.append(newLine); // a blank line before the section
        }
        const Line& line = m_lines[std::size_t(index)];
        const qsizetype entryIndex = entryOfLine[std::size_t(index)];
        const bool dropped = !kept[std::size_t(index)];
        bool rewritten = false;
        if (entryIndex >= 0 && !dropped) {
            // A shadowed line of a key stays as it is.
            const Entry& entry = m_entries[std::size_t(entryIndex)];
            const QVariant& value = *values.constFind(entry.key);
            rewritten = readFrom.value(entry.key) == entryIndex
                && !IniText::sameValue(IniText::readValue(valueOf(entry)).value, value);
            if (rewritten && !rewrite(entry, value, out))
                return failed(entry.key);
        }
        if (!dropped) {
            out.append(QByteArrayView(m_bytes).sliced(rewritten ? line.end : line.begin,
                                                      line.next - (rewritten ? line.end : line.begin)));
        }
        const auto inserted = insertAfter.find(index);
        if (inserted == insertAfter.end())
            continue;
        if (!dropped && line.next == line.end)
            out.append(newLine);
        out.append(inserted->second);
    }
    // A last line without its line end gets one: editors and tools expect it.
    if (out.size() > m_bodyBegin && !out.endsWith('\n') && !out.endsWith('\r'))
        out.append(newLine);
    // A file without sections takes them at its end, still before any new section.
    if (firstHeader < 0)
        out.append(rootLines);

    for (const auto& [group, lines] : newGroups) {
        if (out.size() > m_bodyBegin) {
            const QByteArrayView body = QByteArrayView(out).sliced(m_bodyBegin);
            if (body != newLine && !body.endsWith(newLine + newLine))
                out.append(newLine); // a blank line before a section
        }
        appendSectionHeader(group, out);
        out.append(newLine);
        out.append(lines);
    }
    return true;
}

} // namespace zel
