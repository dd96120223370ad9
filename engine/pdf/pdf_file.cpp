// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/pdf_file.h"

#include "base/failure.h"
#include "passwords.h"
#include "pdf_file_handles.h"

#include <ErrorCodes.h>
#include <GfxState.h>
#include <Page.h>
#include <poppler-config.h>

#include <algorithm>

namespace quorra {

namespace {

constexpr PageSize usLetter{612, 792};

void dropMessage(ErrorCategory, Goffset, const char *) {}

std::optional<GooString> optionalPassword(const std::string &password)
{
    return password.empty() ? std::optional<GooString>() : std::optional<GooString>(password);
}

std::unique_ptr<PDFDoc> load(const std::string &path, const PasswordPair &passwords)
{
    return std::make_unique<PDFDoc>(
        std::make_unique<GooString>(path), optionalPassword(passwords.owner), optionalPassword(passwords.user));
}

[[noreturn]] void fail(const std::string &path, int error, bool passwordGiven)
{
    if (error == errEncrypted) {
        throw Failure(
            ExitStatus::Password, (passwordGiven ? "wrong password for " : "a password is required to open ") + path);
    }
    throw Failure(ExitStatus::CannotOpen, (error == errOpenFile ? "cannot read " : "not a readable PDF file: ") + path);
}

/// The library creates its static colour profiles with the first graphics state, without a lock: two threads that draw
/// their first page at the same time would both create them. A file is always opened before threads draw.
void makeColourProfiles()
{
    [[maybe_unused]] static const bool made = [] {
        const PDFRectangle page(0, 0, usLetter.width, usLetter.height);
        const GfxState first(1, 1, &page, 0, false);
        return true;
    }();
}

/// The only place that decides whether the owner's restrictions apply: a file that can be opened is converted.
bool conversionAllowed(const PDFDoc &)
{
    return true;
}

} // namespace

std::string pdfLibraryVersion()
{
    return POPPLER_VERSION;
}

PdfFile::PdfFile(const std::string &path, const std::string &userPassword, const std::string &ownerPassword)
    : m_handles(std::make_unique<PdfFileHandles>(&dropMessage))
{
    makeColourProfiles();
    for (const PasswordPair &passwords : passwordsToTry(userPassword, ownerPassword)) {
        m_handles->doc = load(path, passwords);
        m_handles->passwords = passwords;
        if (m_handles->doc->isOk() || m_handles->doc->getErrorCode() != errEncrypted) {
            break;
        }
    }
    PDFDoc &doc = *m_handles->doc;
    if (!doc.isOk()) {
        fail(path, doc.getErrorCode(), !userPassword.empty() || !ownerPassword.empty());
    }
    if (doc.getNumPages() < 1) {
        fail(path, errDamaged, false);
    }
    if (!conversionAllowed(doc)) {
        throw Failure(ExitStatus::NotPermitted, "the permissions of the file do not allow this");
    }
    m_handles->path = path;
}

PdfFile::~PdfFile() = default;

std::unique_ptr<PdfFile> PdfFile::openAgain() const
{
    const PasswordPair &passwords = m_handles->passwords;
    return std::make_unique<PdfFile>(m_handles->path, passwords.user, passwords.owner);
}

int PdfFile::pageCount() const
{
    return m_handles->doc->getNumPages();
}

std::uint64_t PdfFile::fileBytes() const
{
    return static_cast<std::uint64_t>(std::max<Goffset>(0, m_handles->doc->getBaseStream()->getLength()));
}

PageSize PdfFile::pageSize(int page) const
{
    PDFDoc &doc = *m_handles->doc;
    PageSize size{doc.getPageCropWidth(page), doc.getPageCropHeight(page)};
    if (!(size.width > 0) || !(size.height > 0)) {
        return usLetter;
    }
    if (rotation(page) % 180 != 0) {
        std::swap(size.width, size.height);
    }
    return size;
}

int PdfFile::rotation(int page) const
{
    return m_handles->doc->getPageRotate(page);
}

} // namespace quorra
