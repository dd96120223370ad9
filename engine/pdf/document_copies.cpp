// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/document_copies.h"

namespace quorra {

DocumentCopies::DocumentCopies(Document &document) : m_original(document), m_free{&document} {}

DocumentCopies::Loan DocumentCopies::borrow()
{
    Document *document = takeFree();
    if (!document) { // opened without the lock, so that threads can open files in parallel
        std::unique_ptr<Document> opened = m_original.openAgain();
        const std::lock_guard lock(m_mutex);
        document = m_opened.emplace_back(std::move(opened)).get();
    }
    return Loan(document, [this](Document *used) { giveBack(used); });
}

Document *DocumentCopies::takeFree()
{
    const std::lock_guard lock(m_mutex);
    if (m_free.empty()) {
        return nullptr;
    }
    Document *document = m_free.back();
    m_free.pop_back();
    return document;
}

void DocumentCopies::giveBack(Document *document)
{
    const std::lock_guard lock(m_mutex);
    m_free.push_back(document);
}

} // namespace quorra
