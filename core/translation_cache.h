#pragma once
// The translation cache of the session: pairs of Spanish text and translation in
// the order they were stored. A pair is kept even when the translation equals
// the text, so that no text is looked up twice. When the cache reaches
// `kLimite` pairs, the oldest `kDescarte` are dropped.

#include <QHash>
#include <QString>
#include <deque>
#include <optional>

namespace co {

class TranslationCache {
public:
    static constexpr int kLimite = 10001;
    static constexpr int kDescarte = 1001;

    std::optional<QString> find(const QString &texto) const;
    // A text already held keeps its place and takes the new translation.
    void store(const QString &texto, const QString &traduccion);
    bool contains(const QString &texto) const { return pairs_.contains(texto); }
    int size() const { return static_cast<int>(order_.size()); }

private:
    QHash<QString, QString> pairs_;
    std::deque<QString> order_;
};

} // namespace co
