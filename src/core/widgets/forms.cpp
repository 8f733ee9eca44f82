#include "core/widgets/forms.h"

#include "core/mdlAllgemein.h"

#include <vector>

namespace kolibri {
namespace {

struct KnownForm {
    std::type_index type;
    std::unique_ptr<QWidget> form;
};

std::vector<KnownForm>& knownForms() {
    static std::vector<KnownForm> forms;
    return forms;
}

} // namespace

FormWindow::FormWindow(const QString& objectName) {
    setObjectName(objectName);
    setWindowModality(Qt::ApplicationModal);
    // The office resizes and maximises windows like any other program's.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint
                   | Qt::WindowCloseButtonHint);
}

void FormWindow::ShowOver(QWidget* opener) {
    m_opener = opener;
    show();
    raise();
    activateWindow();
}

void FormWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Prepare();
}

void FormWindow::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    if (event->spontaneous())
        return;
    if (auto* opener = dynamic_cast<FormWindow*>(m_opener.data()); opener && opener->isVisible())
        opener->Prepare();
}

QWidget* registeredForm(std::type_index type) {
    for (const auto& known : knownForms())
        if (known.type == type)
            return known.form.get();
    return nullptr;
}

void registerForm(std::type_index type, std::unique_ptr<QWidget> form) {
    knownForms().push_back({type, std::move(form)});
}

void unloadForms() {
    while (!knownForms().empty()) {
        // Out of the list first: a form that is going away must not be found again.
        const auto form = std::move(knownForms().back().form);
        knownForms().pop_back();
        try {
            if (auto* window = dynamic_cast<FormWindow*>(form.get()))
                window->Unload();
        } catch (...) {
            CloseDB();
        }
    }
}

} // namespace kolibri
