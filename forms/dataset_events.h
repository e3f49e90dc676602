#pragma once
// Dataset events by type. A record screen's handler of an event is named
// "<dataset><event>" ("Table1CalcFields"); screens name events by this type
// and the framework spells the name.

#include <QString>

namespace co::forms {

class Dataset;

enum class EventoDatos {
    BeforeInsert,
    AfterInsert,
    NewRecord,
    BeforeEdit,
    AfterEdit,
    BeforePost,
    AfterPost,
    BeforeCancel,
    AfterCancel,
    BeforeDelete,
    AfterDelete,
    BeforeScroll,
    AfterScroll,
    CalcFields,
};

// The dataset's event name ("OnCalcFields", "AfterPost").
QString NombreEvento(EventoDatos evento);
// The handler name of a record screen ("Table1CalcFields").
QString NombreManejador(const Dataset &dataset, EventoDatos evento);

} // namespace co::forms
