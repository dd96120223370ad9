// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pdf/pdf_file.h"

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace quorra {

/// Objects that have the same file open, for several threads. One thread at a time uses an object; afterwards it is
/// reused, because opening a file takes time.
class PdfFilePool
{
public:
    /// A file that is returned to the pool by the destructor; the pool must outlive it.
    using Loan = std::unique_ptr<PdfFile, std::function<void(PdfFile *)>>;

    /// This object is the first one in the pool. It must outlive the pool, and must not be used otherwise in the
    /// meantime.
    explicit PdfFilePool(PdfFile &file);

    /// Thread-safe. Opens the file again if no object is free; throws Failure like opening a file.
    Loan borrow();

private:
    PdfFile *takeFree();
    void giveBack(PdfFile *file);

    const PdfFile &m_original;
    std::mutex m_mutex;
    std::vector<PdfFile *> m_free;
    std::vector<std::unique_ptr<PdfFile>> m_opened;
};

} // namespace quorra
