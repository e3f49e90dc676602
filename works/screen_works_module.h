#pragma once
// The works settings a works screen reads: the session's works data module
// when the screen's registration gives it one (`Usar`), else a module of the
// screen's own, read once on first use (tests and the command line).

#include "works/works_data.h"

#include <memory>

namespace co::works {

class ModuloObraDePantalla {
public:
    explicit ModuloObraDePantalla(TModuloDatos &datos) : datos_(datos) {}

    void Usar(const TMDObra &obra) { obra_ = &obra; }
    const TMDObra &operator()() {
        if (!obra_) {
            propio_ = std::make_unique<TMDObra>(datos_);
            obra_ = propio_.get();
        }
        return *obra_;
    }

private:
    TModuloDatos &datos_;
    const TMDObra *obra_ = nullptr;
    std::unique_ptr<TMDObra> propio_;
};

} // namespace co::works
