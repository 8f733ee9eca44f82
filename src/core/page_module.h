#pragma once

#include "core/doors.h"
#include "core/store/office_error.h"

#include <QPageLayout>
#include <QtPlugin>

#include <functional>

class QWidget;

namespace kolibri {

/// A page cannot be shown or brought to paper.
class PageError : public OfficeError {
public:
    explicit PageError(const QString& message, const QString& details = {});

    QString message() const override { return m_message; }
    QString details() const override { return m_details; }

private:
    QString m_message;
    QString m_details;
};

/// The part of the window in which a page is seen. Closed off: a page runs nothing, and nothing is fetched
/// but the page itself and pictures that lie beside it or beside the program.
class PageView {
public:
    virtual ~PageView() = default;

    /// Lives as long as the view, unless the window that holds it takes it along.
    virtual QWidget* widget() = 0;
    /// Shows a file; returns when it is there. False when the engine cannot show it.
    [[nodiscard]] virtual bool load(const QString& file) = 0;
    /// Marks the next place of a text, and tells how many there are. An empty text takes the marks away.
    virtual void find(const QString& text, bool backward, const std::function<void(int places)>& found) = 0;
    virtual double zoom() const = 0;
    virtual void setZoom(double factor) = 0;
    /// A page as PDF, on sheets like these. Empty when the engine cannot do it.
    [[nodiscard]] virtual QByteArray toPdf(const QByteArray& page, const QPageLayout& sheet) = 0;
};

/// What the user chose in the print dialog.
class PrintJob {
public:
    virtual ~PrintJob() = default;

    virtual QPageLayout sheet() const = 0;
    /// Prints a PDF. @returns what went wrong, in words; empty when the printer has taken it
    [[nodiscard]] virtual QString print(const QByteArray& pdf, const QString& title) = 0;
};

/// The browser engine and the printers. They live in a library of their own that is loaded with the first
/// list, because the program would start several times as slow with them.
class PageModule {
public:
    virtual ~PageModule() = default;

    virtual std::unique_ptr<PageView> createView(QWidget* parent) = 0;
    virtual bool hasPrinter() const = 0;
    /// Measures of the default printer's sheet; no value when there is no printer.
    virtual std::optional<PaperMeasures> measures(PaperOrientation orientation) const = 0;
    /// The print dialog; nothing when the user gave up.
    virtual std::unique_ptr<PrintJob> choosePrinter(QWidget* parent, PaperOrientation orientation) = 0;
};

/// The module, loaded at the first call. @throws PageError when it cannot be loaded
PageModule& pageModule();

/// The default printer of the machine, asked through the module; a sheet of A4 where there is none.
class DefaultPrinter final : public A4Paper {
public:
    PaperMeasures measures() const override;
};

} // namespace kolibri

#define KOLIBRI_PAGE_MODULE "de.nordlicht.kolibri.PageModule/1"
Q_DECLARE_INTERFACE(kolibri::PageModule, KOLIBRI_PAGE_MODULE)
