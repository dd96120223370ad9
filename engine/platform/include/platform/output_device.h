// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/output_file.h"

#include <QIODevice>

namespace quorra {

/// Device that lets the XML writer write to an output file. Throws what the file throws.
class OutputDevice final : public QIODevice
{
public:
    explicit OutputDevice(OutputFile &file) : m_file(file) { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

protected:
    qint64 readData(char * /*data*/, qint64 /*most*/) override { return -1; }
    qint64 writeData(const char *data, qint64 size) override
    {
        m_file.write({data, static_cast<std::size_t>(size)});
        return size;
    }

private:
    OutputFile &m_file;
};

} // namespace quorra
