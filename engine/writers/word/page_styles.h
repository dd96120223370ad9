// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/page_number.h"
#include "page_layout.h"
#include "word/flow_form.h"

#include <optional>
#include <vector>

namespace quorra::office {

/// The pages whose headers and footers a page of the output has: those of the first page that looks the same. Left
/// pages, with even numbers, may have others than right ones. The pages belong to the document.
struct PageStyle
{
    const model::Page *right = nullptr;
    const model::Page *left = nullptr;
    bool fields = false;                                       ///< their page numbers are counted
    model::NumberFormat format = model::NumberFormat::Decimal; ///< of these
    std::optional<int> firstNumber;                            ///< counting begins anew with this number

    bool isLike(const PageStyle &other) const
    {
        return right == other.right && left == other.left && fields == other.fields;
    }
};

/// Returns the style of each page of the document, which has these margins.
std::vector<PageStyle>
planPageStyles(const model::Document &document, const std::vector<Margins> &margins, const FlowForm &form);

} // namespace quorra::office
