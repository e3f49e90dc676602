#include "forms/dataset_errors.h"

#include "core/failure_handler.h"

namespace co::forms {

QString EDatabaseError::Mensaje() const {
    return GestionExcepciones(texto_).message;
}

} // namespace co::forms
