#include "IniText.h"

#include <QStringDecoder>
#include <QStringList>
#include <QStringView>

#include <utility>

namespace zel::IniText {

namespace {

constexpr char16_t ByteOrderMark = 0xFEFF;

// QString::fromUtf8 drops a byte-order mark that starts its input; one inside a value
// or key is part of it.
QString utf8Text(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(bytes);
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// Reads the digits of a numeric escape at `at` as Qt does: as many as there are, the
// code kept to 16 bits. Returns how many digits were read.
qsizetype readNumber(QByteArrayView raw, qsizetype at, int base, char16_t& code)
{
    qsizetype count = 0;
    quint32 number = 0;
    for (; at + count < raw.size(); ++count) {
        const int digit = hexDigit(raw[at + count]);
        if (digit < 0 || digit >= base)
            break;
        number = (number * quint32(base) + quint32(digit)) & 0xFFFF;
    }
    code = char16_t(number);
    return count;
}

// "@@" stands for a text that starts with "@"; "@String(...)" is plain text. Every
// other "@" form stays as it is written: reading never turns file bytes into objects.
QString textOf(QString text)
{
    if (text.startsWith(QLatin1String("@@")))
        text.remove(0, 1);
    else if (text.startsWith(QLatin1String("@String(")) && text.endsWith(QLatin1Char(')')))
        text = text.mid(8, text.size() - 9);
    return text;
}

// Collects one list element: UTF-8 runs, escaped characters and quoted parts.
class Element
{
public:
    void addByte(char byte)
    {
        flushBlanks();
        m_bytes.append(byte);
    }
    void addChar(QChar character)
    {
        flushBlanks();
        flushBytes();
        m_text.append(character);
    }
    // Blanks count only between words of unquoted text.
    void addBlank(char byte)
    {
        if (!m_text.isEmpty() || !m_bytes.isEmpty())
            m_blanks.append(byte);
    }
    void quoteOpened() { flushBlanks(); }
    void quoteClosed()
    {
        m_blanks.clear();
        m_afterQuote = true;
    }
    QString take()
    {
        flushBytes();
        m_blanks.clear();
        m_afterQuote = false;
        return std::exchange(m_text, QString());
    }

private:
    void flushBlanks()
    {
        if (!m_afterQuote)
            m_bytes.append(m_blanks);
        m_blanks.clear();
        m_afterQuote = false;
    }
    void flushBytes()
    {
        if (!m_bytes.isEmpty())
            m_text.append(utf8Text(m_bytes));
        m_bytes.clear();
    }

    QString m_text;
    QByteArray m_bytes;
    QByteArray m_blanks;
    bool m_afterQuote = false;
};

// Handles the escape whose backslash is at `at`; returns the index after it.
qsizetype readEscape(QByteArrayView raw, qsizetype at, Element& element)
{
    const qsizetype next = at + 1;
    if (next >= raw.size()) {
        element.addByte('\\');
        return next;
    }
    const char c = raw[next];
    static constexpr char named[] = "a\ab\bf\fn\nr\rt\tv\v\"\"''\\\\??";
    for (const char* pair = named; *pair; pair += 2) {
        if (*pair == c) {
            element.addChar(QLatin1Char(pair[1]));
            return next + 1;
        }
    }
    char16_t code = 0;
    if (c == 'x') {
        const qsizetype digits = readNumber(raw, next + 1, 16, code);
        if (digits > 0) {
            element.addChar(QChar(code));
            return next + 1 + digits;
        }
    } else if (c >= '0' && c <= '7') {
        const qsizetype digits = readNumber(raw, next, 8, code);
        element.addChar(QChar(code));
        return next + digits;
    }
    // Not an escape: a hand-typed path keeps its backslash.
    element.addByte('\\');
    return next;
}

bool isHexDigit(QChar c)
{
    return c.unicode() < 128 && hexDigit(char(c.unicode())) >= 0;
}

void appendHex(char16_t code, QByteArray& out)
{
    out.append("\\x");
    out.append(QByteArray::number(code, 16));
}

// Escapes `text` for a line; Qt's reader and ours read it back the same.
void appendEscaped(QStringView text, QByteArray& out)
{
    bool afterHex = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const char16_t code = c.unicode();
        // A hex escape takes every hex digit after it: those go escaped as well.
        if (afterHex && isHexDigit(c)) {
            appendHex(code, out);
            continue;
        }
        afterHex = false;
        switch (code) {
        case '\\': out.append("\\\\"); continue;
        case '"': out.append("\\\""); continue;
        case '\a': out.append("\\a"); continue;
        case '\b': out.append("\\b"); continue;
        case '\f': out.append("\\f"); continue;
        case '\n': out.append("\\n"); continue;
        case '\r': out.append("\\r"); continue;
        case '\t': out.append("\\t"); continue;
        case '\v': out.append("\\v"); continue;
        default: break;
        }
        if (code < 0x20 || code == 0x7F) {
            appendHex(code, out);
            afterHex = true;
        } else if (code < 0x80) {
            out.append(char(code));
        } else if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            out.append(text.mid(i, 2).toUtf8());
            ++i;
        } else if (c.isSurrogate() || code == ByteOrderMark) {
            // UTF-8 has no form for half a pair; a reader may drop a byte-order mark.
            appendHex(code, out);
            afterHex = true;
        } else {
            out.append(QStringView(&c, 1).toUtf8());
        }
    }
}

bool needsQuotes(QStringView text)
{
    if (text.isEmpty())
        return false;
    const auto blank = [](QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t'); };
    if (blank(text.front()) || blank(text.back()))
        return true;
    for (const QChar c : text) {
        if (c == QLatin1Char(',') || c == QLatin1Char(';') || c == QLatin1Char('='))
            return true;
    }
    return false;
}

void appendText(const QString& text, QByteArray& out)
{
    const bool quoted = needsQuotes(text);
    if (quoted)
        out.append('"');
    if (text.startsWith(QLatin1Char('@')))
        out.append('@');
    appendEscaped(text, out);
    if (quoted)
        out.append('"');
}

QStringList textsOf(const QVariant& value)
{
    if (!value.isValid())
        return {};
    if (value.typeId() == QMetaType::QStringList || value.typeId() == QMetaType::QVariantList)
        return value.toStringList();
    return {value.toString()};
}

} // namespace

Value readValue(QByteArrayView raw)
{
    Value result;
    result.commentAt = raw.size();
    QStringList texts;
    Element element;
    bool quoted = false;
    bool list = false;
    qsizetype i = 0;
    while (i < raw.size()) {
        const char c = raw[i];
        if (c == '\\') {
            i = readEscape(raw, i, element);
            continue;
        }
        if (quoted) {
            if (c == '"') {
                quoted = false;
                element.quoteClosed();
            } else {
                element.addByte(c);
            }
        } else if (c == '"') {
            quoted = true;
            element.quoteOpened();
        } else if (c == ',') {
            texts.append(textOf(element.take()));
            list = true;
        } else if (c == ';') {
            result.commentAt = i;
            break;
        } else if (isBlank(c)) {
            element.addBlank(c);
        } else {
            element.addByte(c);
        }
        ++i;
    }
    const QString last = element.take();
    if (list) {
        texts.append(textOf(last));
        result.value = texts;
    } else if (last != QLatin1String("@Invalid()")) {
        result.value = textOf(last);
    }
    return result;
}

QString readKey(QByteArrayView raw)
{
    QString key;
    QByteArray bytes;
    const auto flush = [&] {
        key.append(utf8Text(bytes));
        bytes.clear();
    };
    for (qsizetype i = 0; i < raw.size(); ++i) {
        const char c = raw[i];
        char16_t code = 0;
        if (c == '%' && i + 5 < raw.size() && raw[i + 1] == 'U' && readNumber(raw.sliced(i + 2, 4), 0, 16, code) == 4) {
            flush();
            key.append(QChar(code));
            i += 5;
        } else if (c == '%' && i + 2 < raw.size() && readNumber(raw.sliced(i + 1, 2), 0, 16, code) == 2) {
            flush();
            key.append(QChar(code));
            i += 2;
        } else {
            bytes.append(c == '\\' ? '/' : c);
        }
    }
    flush();
    return key.split(QLatin1Char('/'), Qt::SkipEmptyParts).join(QLatin1Char('/'));
}

bool writeValue(const QVariant& value, QByteArray& out)
{
    if (!value.isValid()) {
        out.append("@Invalid()");
        return true;
    }
    switch (value.typeId()) {
    case QMetaType::QString:
        appendText(value.toString(), out);
        return true;
    case QMetaType::QByteArray:
        out.append("@ByteArray(");
        appendEscaped(QString::fromLatin1(value.toByteArray()), out);
        out.append(')');
        return true;
    case QMetaType::QStringList:
    case QMetaType::QVariantList: {
        const QStringList texts = value.toStringList();
        if (texts.isEmpty())
            out.append("@Invalid()");
        for (qsizetype i = 0; i < texts.size(); ++i) {
            if (i > 0)
                out.append(", ");
            appendText(texts[i], out);
        }
        return true;
    }
    default:
        break;
    }
    if (!value.canConvert<QString>())
        return false;
    appendText(value.toString(), out);
    return true;
}

void writeKey(QStringView key, QByteArray& out)
{
    for (qsizetype i = 0; i < key.size(); ++i) {
        const QChar c = key[i];
        const char16_t code = c.unicode();
        const bool plain = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9')
            || code == '_' || code == '-' || code == '.';
        if (code == '/') {
            out.append('\\');
        } else if (plain) {
            out.append(char(code));
        } else if (code >= 0x80 && !c.isSurrogate() && code != ByteOrderMark) {
            out.append(key.mid(i, 1).toUtf8());
        } else if (c.isHighSurrogate() && i + 1 < key.size() && key[i + 1].isLowSurrogate()) {
            out.append(key.mid(i, 2).toUtf8());
            ++i;
        } else if (code <= 0xFF) {
            out.append('%');
            out.append(QByteArray::number(code, 16).rightJustified(2, '0').toUpper());
        } else {
            out.append("%U");
            out.append(QByteArray::number(code, 16).rightJustified(4, '0').toUpper());
        }
    }
}

bool sameValue(const QVariant& left, const QVariant& right)
{
    if (left.typeId() == right.typeId() && left.isValid() == right.isValid())
        return left == right;
    return textsOf(left) == textsOf(right);
}

} // namespace zel::IniText
