// SPDX-License-Identifier: GPL-3.0-or-later
// The baseline for the program start: a main window with the same widgets and texts, but without images, settings,
// style sheets and connections.
#include <QAction>
#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QToolButton>

namespace {

QLayout *toolbar()
{
    auto *row = new QHBoxLayout;
    for (const char *text : {"Add", "Delete", "Clear", "Setting", "Start", "About"}) {
        auto *button = new QToolButton;
        button->setFixedSize(70, 75);
        button->setText(QString::fromLatin1(text));
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setAutoRaise(true);
        row->addWidget(button);
    }
    auto *banner = new QFrame;
    banner->setFixedSize(200, 70);
    banner->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    row->addWidget(banner);
    row->addItem(new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum));
    return row;
}

QListWidget *formatList()
{
    auto *list = new QListWidget;
    list->setGridSize(QSize(0, 29));
    list->setFixedWidth(150);
    list->setMinimumHeight(300);
    for (const char *text :
         {"PDF to Word", "PDF to Excel", "PDF to PPT", "PDF to HTML", "PDF to XML", "PDF to PostScript", "PDF to EPS",
          "PDF to Text", "PDF to Image"}) {
        list->addItem(QString::fromLatin1(text));
    }
    list->setCurrentRow(0);
    return list;
}

QTableWidget *fileTable()
{
    auto *table = new QTableWidget(0, 2);
    table->setFixedHeight(300);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setHorizontalHeaderLabels({QStringLiteral("File Name"), QStringLiteral("File Size")});
    table->horizontalHeader()->setVisible(false);
    table->horizontalHeader()->setStretchLastSection(true);
    table->verticalHeader()->setVisible(false);
    table->setContextMenuPolicy(Qt::ActionsContextMenu);
    for (const char *text : {"Add File(s)", "View PDF File", "Delete Selected Item(s)", "Delete All Item(s)"}) {
        table->addAction(new QAction(QString::fromLatin1(text), table));
    }
    table->setColumnWidth(0, 400);
    return table;
}

QLayout *outputRow()
{
    auto *row = new QHBoxLayout;
    auto *label = new QLabel(QStringLiteral("Output Folder:"));
    label->setFixedSize(90, 22);
    row->addWidget(label);
    auto *line = new QLineEdit;
    line->setFixedSize(350, 22);
    row->addWidget(line);
    row->addWidget(new QPushButton(QStringLiteral("Choose")));
    row->addItem(new QSpacerItem(40, 20, QSizePolicy::Expanding, QSizePolicy::Minimum));
    return row;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QMainWindow window;
    auto *central = new QWidget;
    auto *column = new QVBoxLayout(central);
    column->addLayout(toolbar());
    auto *middle = new QHBoxLayout;
    middle->addWidget(formatList());
    middle->addWidget(fileTable());
    column->addLayout(middle);
    column->addLayout(outputRow());
    auto *bar = new QProgressBar;
    bar->setValue(0);
    column->addWidget(bar);
    window.setCentralWidget(central);
    window.setWindowTitle(QStringLiteral("Marbeck Quorra Converter"));
    window.setFixedSize(720, 483);
    window.show();
    return QApplication::exec();
}
