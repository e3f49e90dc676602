#pragma once
// The value filters of list forms: "equal to", "from" and "to" on the selected
// field. The value is asked for with the field's current one proposed; an
// accepted value is taken as it is, empty included, and a cancel filters
// nothing. The condition `(<field> <op> '<value>')` is appended with " AND "
// to the dataset's filter text and the filter is switched off and on. Not
// offered while the dataset is pending nor on calculated fields. A filter the
// dataset refuses gives "¡No ha sido posible filtrar registros!" and the former
// filter stays.

#include "core/messages.h"

namespace co::forms {

class Dataset;
class Field;

enum class FiltroValor { IgualA, Desde, Hasta };

// False when nothing was filtered (not offered, cancelled or refused).
bool FiltrarPorValor(Dataset &dataset, Field &campo, FiltroValor tipo, Messenger &mensajes);
// `CancelarFiltros1Click`: the range is cancelled and the filter switched off.
void CancelarFiltros(Dataset &dataset);

} // namespace co::forms
