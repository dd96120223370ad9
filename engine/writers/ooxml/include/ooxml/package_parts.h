// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <string>

// Corrections to files that LibreOffice exported: .docx, .xlsx and .pptx are packages, ZIP archives of parts in XML.
namespace quorra::office {

/// Returns the new content of the part with this name ("ppt/slides/slide1.xml"), or nothing if it stays.
using PartChange = std::function<std::optional<QByteArray>(const QString &name, const QByteArray &content)>;

/// Has `change` see every XML part of the package at this path, in the order of the archive, and replaces those that it
/// changes. Names, order and times of the entries stay, so that the same parts make the same bytes. A file that is no
/// ZIP archive stays as it is. Throws Failure(Helper) if the archive is damaged, Failure(CannotWrite) if it cannot be
/// written.
void changeParts(const std::string &path, const PartChange &change);

} // namespace quorra::office
