#pragma once
// `TfNOMICATE`, "Maestro de Categorías": worker categories (`CATEGORI`). A
// refused change of a category is told as not modified.

#include "forms/grid_master.h"

namespace co::works {

class TfNOMICATE : public forms::MaestroRejilla {
public:
    explicit TfNOMICATE(TModuloDatos &datos);
};

} // namespace co::works
