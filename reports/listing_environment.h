#pragma once
// What a listing takes from the logged-in session: messages, the general
// listing parameters, currencies, the company's name and logo, and the
// translation of captions. Shared by the desktop and the command line.

#include "core/startup.h"
#include "output/report_object.h"

#include <functional>

namespace co {

// `ceder` lets the window queue run during long loops (empty on the command line).
ReportEnvironment EntornoListado(Aplicacion &app, std::function<void()> ceder = {});

} // namespace co
