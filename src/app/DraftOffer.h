#pragma once

#include "base/KeptDrafts.h"

class QWidget;

// What the menu says of the work that was left behind, and the two things that can be done with it.
namespace DraftOffer {

// The words of the line; empty when there is nothing to say. `drafts` are those left, the newest first.
QString text(const QList<KeptDraft>& drafts);
// Opens the editor with it. One that cannot be read raises an error.
void open(QWidget* menu, const KeptDraft& draft);
// Asks, and takes it away.
void drop(const KeptDraft& draft);

} // namespace DraftOffer
