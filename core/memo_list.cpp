#include "core/memo_list.h"

namespace co {

std::optional<QStringList> MemoALista(const QString &texto) {
    if (texto.isEmpty())
        return std::nullopt;
    QStringList lines;
    qsizetype start = 0;
    while (start < texto.size()) {
        qsizetype end = start;
        while (end < texto.size() && texto.at(end) != u'\r' && texto.at(end) != u'\n')
            ++end;
        const QString line = texto.mid(start, end - start);
        if (line == QLatin1String("(Memo)") || line == QLatin1String("finmemo"))
            break;
        lines << line;
        if (end < texto.size() && texto.at(end) == u'\r' && end + 1 < texto.size() &&
            texto.at(end + 1) == u'\n')
            ++end;
        start = end + 1;
    }
    return lines;
}

} // namespace co
