#pragma once
// Memo fields that hold a list, one item a line.

#include <QStringList>
#include <optional>

namespace co {

// The lines of a memo text, split at "\r\n", "\r" or "\n"; a final line break
// adds no empty item. A line "(Memo)" or "finmemo" closes the list and is not
// part of it. An empty text gives no list at all.
std::optional<QStringList> MemoALista(const QString &texto);

} // namespace co
