// SPDX-License-Identifier: GPL-3.0-or-later
#include "plain_table.h"

#include <QFileInfo>
#include <QHeaderView>

#include <utility>

namespace benchmark {

PlainTable::PlainTable() : m_table(0, 2)
{
    m_table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table.setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table.horizontalHeader()->setVisible(false);
    m_table.horizontalHeader()->setStretchLastSection(true);
    m_table.verticalHeader()->setVisible(false);
    m_table.resize(545, 300);
    m_table.setColumnWidth(0, 400);
    m_table.show();
}

void PlainTable::fill(const QStringList &paths)
{
    m_table.setRowCount(static_cast<int>(paths.size()));
    for (int row = 0; row < paths.size(); ++row) {
        const qint64 size = QFileInfo(paths[row]).size();
        QString text = QString::asprintf("%14.3f KB", static_cast<double>(size) / 1000);
        text.replace(QLatin1Char('.'), QLatin1Char(','));
        m_table.setItem(row, 0, new QTableWidgetItem(paths[row]));
        m_table.setItem(row, 1, new QTableWidgetItem(text));
    }
}

void PlainTable::refillWithEveryOther()
{
    QList<std::pair<QString, QString>> kept;
    for (int row = 1; row < m_table.rowCount(); row += 2) {
        kept.append({m_table.item(row, 0)->text(), m_table.item(row, 1)->text()});
    }
    m_table.setRowCount(0);
    m_table.setRowCount(static_cast<int>(kept.size()));
    for (int row = 0; row < kept.size(); ++row) {
        m_table.setItem(row, 0, new QTableWidgetItem(kept[row].first));
        m_table.setItem(row, 1, new QTableWidgetItem(kept[row].second));
    }
}

QStringList localPaths(const QList<QUrl> &urls)
{
    QStringList paths;
    for (const QUrl &url : urls) {
        paths.append(url.toLocalFile());
    }
    return paths;
}

} // namespace benchmark
