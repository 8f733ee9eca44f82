#pragma once

#include <QDialog>
#include <QPointer>

#include <memory>
#include <type_traits>
#include <typeindex>

namespace kolibri {

/// A window of the program besides the main window. One instance each, made at first use and only hidden when
/// it is left, so it keeps what was typed and is prepared anew each time it becomes the window in use.
class FormWindow : public QDialog {
public:
    explicit FormWindow(const QString& objectName);

    /// Shows the form over the window that asked for it, which waits until the form goes away.
    void ShowOver(QWidget* opener);

    /// Runs at the end of the program, before the form goes away; what goes wrong here is passed over.
    virtual void Unload() {}

    /// The mode in which the form was opened; empty when it has only one.
    QString Tag;

protected:
    /// Runs when the form is shown, and when a form or window that it opened goes away again. Not when the
    /// user comes back from another program: what was typed stays.
    virtual void Prepare() {}

    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QPointer<QWidget> m_opener;
};

/// Used by Form<T>() and at the end of the program.
QWidget* registeredForm(std::type_index type);
void registerForm(std::type_index type, std::unique_ptr<QWidget> form);
/// Unloads all forms, one after the other, the newest first. Errors are passed over: none may keep the
/// program from ending.
void unloadForms();

/// The one instance of a form, made at first use.
template <class T> T& Form() {
    static_assert(std::is_base_of_v<QWidget, T>);
    if (QWidget* known = registeredForm(typeid(T)))
        return *static_cast<T*>(known);
    auto form = std::make_unique<T>();
    T& result = *form;
    registerForm(typeid(T), std::move(form));
    return result;
}

} // namespace kolibri
