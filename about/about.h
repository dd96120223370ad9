// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

class Ui_about;

/// The modal About box: name, version, copyright, home page and support address below the banner.
class about : public QDialog
{
    Q_OBJECT

public:
    explicit about(QWidget *parent = nullptr);
    ~about() override;

public Q_SLOTS:
    void On_Button_Ok();

protected:
    std::unique_ptr<Ui_about> ui;
};
