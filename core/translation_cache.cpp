#include "core/translation_cache.h"

namespace co {

std::optional<QString> TranslationCache::find(const QString &texto) const {
    const auto it = pairs_.constFind(texto);
    if (it == pairs_.cend())
        return std::nullopt;
    return *it;
}

void TranslationCache::store(const QString &texto, const QString &traduccion) {
    const auto it = pairs_.find(texto);
    if (it != pairs_.end()) {
        *it = traduccion;
        return;
    }
    pairs_.insert(texto, traduccion);
    order_.push_back(texto);
    if (size() < kLimite)
        return;
    for (int i = 0; i < kDescarte; ++i) {
        pairs_.remove(order_.front());
        order_.pop_front();
    }
}

} // namespace co
