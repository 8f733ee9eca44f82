#pragma once

#include "core/page_module.h"

#include <QObject>

namespace kolibri {

/// What the program finds when it loads this library.
class WebModule final : public QObject, public PageModule {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "de.nordlicht.kolibri.PageModule/1")
    Q_INTERFACES(kolibri::PageModule)

public:
    WebModule();

    std::unique_ptr<PageView> createView(QWidget* parent) override;
    bool hasPrinter() const override;
    std::optional<PaperMeasures> measures(PaperOrientation orientation) const override;
    std::unique_ptr<PrintJob> choosePrinter(QWidget* parent, PaperOrientation orientation) override;
};

} // namespace kolibri
