// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quorra {

struct DocumentHandles;

/// Width and height in points, 1/72 inch.
struct PageSize
{
    double width = 0;
    double height = 0;
};

/// An opened PDF file. The library's own types stay behind document_handles.h. One object serves one thread; a
/// second thread opens its own.
class Document
{
public:
    /// Opens the file with the passwords as given, then with the two exchanged. Throws Failure(CannotOpen) or
    /// Failure(Password).
    Document(const std::string &path, const std::string &userPassword, const std::string &ownerPassword);
    ~Document();
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;

    /// The same file opened once more, for another thread. Throws as opening does.
    std::unique_ptr<Document> openAgain() const;

    int pageCount() const;

    /// Size of the file.
    std::uint64_t fileBytes() const;

    /// Size of the page's crop box as a viewer shows it: the page's rotation is applied. Pages count from 1. A page
    /// that cannot be read gives US Letter.
    PageSize pageSize(int page) const;

    /// The page's rotation: 0, 90, 180 or 270 degrees clockwise.
    int rotation(int page) const;

    /// For the few sources that work with the library's own types.
    DocumentHandles &handles() { return *m_handles; }
    const DocumentHandles &handles() const { return *m_handles; }

private:
    std::unique_ptr<DocumentHandles> m_handles;
};

} // namespace quorra
