#pragma once

#include <QtGlobal>

#include <atomic>

namespace zel {

// The stand-in kernel libraries have nothing to start or stop; they only check that
// every terminate pairs with an earlier initialize, so a broken start-up order shows.
class kqLibraryUsage
{
public:
    explicit constexpr kqLibraryUsage(const char* name)
        : m_name(name)
    {
    }

    void acquire() { ++m_count; }

    void release()
    {
        int count = m_count.load();
        while (count > 0 && !m_count.compare_exchange_weak(count, count - 1)) {
        }
        if (count <= 0)
            qWarning("%s terminated without being initialized", m_name);
    }

private:
    Q_DISABLE_COPY_MOVE(kqLibraryUsage)
    const char* m_name = nullptr;
    std::atomic<int> m_count {0};
};

} // namespace zel
