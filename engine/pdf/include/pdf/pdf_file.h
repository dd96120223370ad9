// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quorra {

struct PdfFileHandles;

/// Width and height in points, 1/72 inch.
struct PageSize
{
    double width = 0;
    double height = 0;
};

/// Returns the version of the PDF library, such as "22.12.0".
std::string pdfLibraryVersion();

/// An open PDF file. The library's types are hidden behind pdf_file_handles.h. Not thread-safe: each thread opens its
/// own.
class PdfFile
{
public:
    /// Opens the file with the passwords as given, then swapped. Throws Failure(CannotOpen) or Failure(Password).
    PdfFile(const std::string &path, const std::string &userPassword, const std::string &ownerPassword);
    ~PdfFile();
    PdfFile(const PdfFile &) = delete;
    PdfFile &operator=(const PdfFile &) = delete;

    /// Opens the same file again, for another thread. Throws like the constructor.
    std::unique_ptr<PdfFile> openAgain() const;

    int pageCount() const;

    /// Size of the file.
    std::uint64_t fileBytes() const;

    /// Returns the size of the crop box as displayed, with the page rotation applied. Pages are numbered from 1.
    /// Returns US Letter for a page that cannot be read.
    PageSize pageSize(int page) const;

    /// Returns the page rotation: 0, 90, 180 or 270 degrees clockwise.
    int rotation(int page) const;

    /// For source files that work with the library's types.
    PdfFileHandles &handles() { return *m_handles; }
    const PdfFileHandles &handles() const { return *m_handles; }

private:
    std::unique_ptr<PdfFileHandles> m_handles;
};

} // namespace quorra
