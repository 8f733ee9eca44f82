#include "web/web_module.h"

#include "web/engine_view.h"
#include "web/printing.h"

#include <QQuickWindow>

namespace kolibri {

WebModule::WebModule() {
    // Lists are text and lines: drawn without graphics hardware they look alike on every machine of the
    // school, old ones and remote sessions included.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

std::unique_ptr<PageView> WebModule::createView(QWidget* parent) {
    return std::make_unique<EngineView>(parent);
}

bool WebModule::hasPrinter() const {
    return printerExists();
}

std::optional<PaperMeasures> WebModule::measures(PaperOrientation orientation) const {
    return defaultPrinterMeasures(orientation);
}

std::unique_ptr<PrintJob> WebModule::choosePrinter(QWidget* parent, PaperOrientation orientation) {
    return askForPrinter(parent, orientation);
}

} // namespace kolibri
