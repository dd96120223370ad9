// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/pdf_file_pool.h"

namespace quorra {

PdfFilePool::PdfFilePool(PdfFile &file) : m_original(file), m_free{&file} {}

PdfFilePool::Loan PdfFilePool::borrow()
{
    PdfFile *file = takeFree();
    if (!file) { // opened without the lock, so that threads can open files in parallel
        std::unique_ptr<PdfFile> opened = m_original.openAgain();
        const std::lock_guard lock(m_mutex);
        file = m_opened.emplace_back(std::move(opened)).get();
    }
    return Loan(file, [this](PdfFile *used) { giveBack(used); });
}

PdfFile *PdfFilePool::takeFree()
{
    const std::lock_guard lock(m_mutex);
    if (m_free.empty()) {
        return nullptr;
    }
    PdfFile *file = m_free.back();
    m_free.pop_back();
    return file;
}

void PdfFilePool::giveBack(PdfFile *file)
{
    const std::lock_guard lock(m_mutex);
    m_free.push_back(file);
}

} // namespace quorra
