// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/convert.h"

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace quorra {

/// The opened file of a job for several threads. One document serves one thread at a time, and opening a file takes
/// time: what a thread gives back, the next one gets.
class DocumentCopies
{
public:
    /// A document that goes back when the loan ends; the copies must outlive it.
    using Loan = std::unique_ptr<Document, std::function<void(Document *)>>;

    /// The job's own document is the first to be lent; meanwhile nobody else may use it.
    explicit DocumentCopies(const Job &job);

    /// Any thread may call it. Opens the file once more where no document is free; throws Failure as opening does.
    Loan borrow();

private:
    Document *takeFree();
    void giveBack(Document *document);

    const Options &m_options;
    std::mutex m_mutex;
    std::vector<Document *> m_free;
    std::vector<std::unique_ptr<Document>> m_opened;
};

} // namespace quorra
