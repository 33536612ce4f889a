#include "TestHome.h"

#include <QDir>
#include <QFile>

namespace {

QByteArray redirect(const char* variable, const QString& folder)
{
    QByteArray saved = qgetenv(variable);
    QDir().mkpath(folder);
    qputenv(variable, QFile::encodeName(folder));
    return saved;
}

void restore(const char* variable, const QByteArray& saved)
{
    if (saved.isNull())
        qunsetenv(variable);
    else
        qputenv(variable, saved);
}

} // namespace

TestHome::TestHome()
{
    m_savedHome = redirect("HOME", path() + QStringLiteral("/home"));
    m_savedConfig = redirect("XDG_CONFIG_HOME", configPath());
    m_savedCache = redirect("XDG_CACHE_HOME", path() + QStringLiteral("/cache"));
    m_savedData = redirect("XDG_DATA_HOME", path() + QStringLiteral("/data"));
    m_savedTmp = redirect("TMPDIR", tempPath());
}

TestHome::~TestHome()
{
    restore("TMPDIR", m_savedTmp);
    restore("XDG_DATA_HOME", m_savedData);
    restore("XDG_CACHE_HOME", m_savedCache);
    restore("XDG_CONFIG_HOME", m_savedConfig);
    restore("HOME", m_savedHome);
}

bool TestHome::isValid() const
{
    return m_root.isValid();
}

QString TestHome::path() const
{
    return m_root.path();
}

QString TestHome::configPath() const
{
    return path() + QStringLiteral("/config");
}

QString TestHome::tempPath() const
{
    return path() + QStringLiteral("/tmp");
}
