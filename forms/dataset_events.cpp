#include "forms/dataset_events.h"

#include "forms/dataset.h"

namespace co::forms {

QString NombreEvento(EventoDatos evento) {
    switch (evento) {
    case EventoDatos::BeforeInsert:
        return QStringLiteral("BeforeInsert");
    case EventoDatos::AfterInsert:
        return QStringLiteral("AfterInsert");
    case EventoDatos::NewRecord:
        return QStringLiteral("OnNewRecord");
    case EventoDatos::BeforeEdit:
        return QStringLiteral("BeforeEdit");
    case EventoDatos::AfterEdit:
        return QStringLiteral("AfterEdit");
    case EventoDatos::BeforePost:
        return QStringLiteral("BeforePost");
    case EventoDatos::AfterPost:
        return QStringLiteral("AfterPost");
    case EventoDatos::BeforeCancel:
        return QStringLiteral("BeforeCancel");
    case EventoDatos::AfterCancel:
        return QStringLiteral("AfterCancel");
    case EventoDatos::BeforeDelete:
        return QStringLiteral("BeforeDelete");
    case EventoDatos::AfterDelete:
        return QStringLiteral("AfterDelete");
    case EventoDatos::BeforeScroll:
        return QStringLiteral("BeforeScroll");
    case EventoDatos::AfterScroll:
        return QStringLiteral("AfterScroll");
    case EventoDatos::CalcFields:
        return QStringLiteral("OnCalcFields");
    }
    return {};
}

QString NombreManejador(const Dataset &dataset, EventoDatos evento) {
    const QString e = NombreEvento(evento);
    return dataset.Name() + (e.startsWith(u"On") ? e.mid(2) : e);
}

} // namespace co::forms
