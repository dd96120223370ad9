// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pdf/document.h"

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace quorra {

/// An opened file for several threads. One document serves one thread at a time, and opening a file takes
/// time: what a thread gives back, the next one gets.
class DocumentCopies
{
public:
    /// A document that goes back when the loan ends; the copies must outlive it.
    using Loan = std::unique_ptr<Document, std::function<void(Document *)>>;

    /// This document is the first to be lent; meanwhile nobody else may use it. It must outlive the copies.
    explicit DocumentCopies(Document &document);

    /// Any thread may call it. Opens the file once more where no document is free; throws Failure as opening does.
    Loan borrow();

private:
    Document *takeFree();
    void giveBack(Document *document);

    const Document &m_original;
    std::mutex m_mutex;
    std::vector<Document *> m_free;
    std::vector<std::unique_ptr<Document>> m_opened;
};

} // namespace quorra
