#pragma once

#include <QtGlobal>

#include <vector>

namespace kolibri {

class PageWriter;

/// When the rows of a list are gathered, and whether the store is open while the page is written.
enum class ListMoment {
    BeforeWindow,            ///< by the form or menu entry, before the page window opens
    BeforeWindowStoreInPage, ///< the same, but the writer finds the store open
    InPage                   ///< while the page is produced, the store open around gatherer and writer
};

/// How a list comes about.
struct ListEntry {
    quint8 listenArt;
    ListMoment moment;
    /// Fills the list state. Before the window it opens the store itself.
    void (*gather)();
    /// Writes the page's body, from "<BODY>" to "</HTML>".
    void (*write)(PageWriter&);
    /// The list has no options, and clears the check boxes of frmDialog before its columns are defined.
    bool clearsOptions = false;
};

/// The lists of the program.
const std::vector<ListEntry>& listTable();
/// The list with this number. @throws RuntimeError 5 when there is none
const ListEntry& findList(quint8 listenArt);

/// What a menu entry or an option form does before it opens the page window: sets ListenArt, keeps the day,
/// empties the sums of the fees, defines the columns, and gathers the rows of a list that is gathered then.
/// @throws RuntimeError, StoreError
void prepareList(quint8 listenArt);

/// Prepares a list and shows its page until the user closes the window.
/// @throws RuntimeError, StoreError
void showList(quint8 listenArt);

} // namespace kolibri
