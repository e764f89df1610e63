// SPDX-License-Identifier: MIT
#ifndef RECENTHASH_H
#define RECENTHASH_H

#include <QHash>

#include <utility>

/// A hash that keeps what was used of late: two halves, of which the older one is dropped as soon as
/// the younger one is full. What is found in the older half moves to the younger one. Holds at most
/// twice its limit, in whatever unit the costs are given.
template<typename Key, typename Value>
class RecentHash
{
public:
    explicit RecentHash(int limit)
        : m_limit(limit)
    {
    }

    /// The value of \a key, null without one. Valid until the next call.
    const Value *find(const Key &key)
    {
        const auto young = m_young.constFind(key);
        if (young != m_young.constEnd())
            return &young->value;
        const auto old = m_old.find(key);
        if (old == m_old.end())
            return nullptr;
        const Key kept = old.key(); // never the given one, which may not own its data
        const Entry entry = *old;
        m_old.erase(old);
        return put(kept, entry);
    }

    /// Keeps \a value, which takes \a cost of the limit. Valid until the next call.
    const Value *insert(const Key &key, const Value &value, int cost)
    {
        return put(key, {value, cost});
    }

    void clear()
    {
        m_young.clear();
        m_old.clear();
        m_cost = 0;
    }

private:
    struct Entry {
        Value value;
        int cost;
    };

    const Value *put(const Key &key, const Entry &entry)
    {
        if (m_cost > m_limit) {
            m_old = std::exchange(m_young, {});
            m_cost = 0;
        }
        m_cost += entry.cost;
        return &m_young.insert(key, entry)->value;
    }

    int m_limit;
    int m_cost = 0; // of the younger half
    QHash<Key, Entry> m_young;
    QHash<Key, Entry> m_old;
};

#endif // RECENTHASH_H
