// SPDX-License-Identifier: GPL-3.0-or-later
// The windows are light on every desktop, and stay light when the desktop turns dark.
#include "about/about.h"
#include "app/light_look.h"
#include "settings/setting.h"
#include "window_fixture.h"

#include <QApplication>
#include <QMessageBox>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QtTest>

namespace {

const QColor darkGround(35, 38, 41);
const QColor lightText(239, 240, 241);

QPalette darkPalette()
{
    QPalette palette;
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
        palette.setColor(static_cast<QPalette::ColorRole>(role), darkGround);
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText}) {
        palette.setColor(role, lightText);
    }
    return palette;
}

/// A style that is dark by itself.
class DarkStyle : public QProxyStyle
{
public:
    DarkStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    QPalette standardPalette() const override { return darkPalette(); }
    void polish(QPalette &palette) override { palette = darkPalette(); }
    using QProxyStyle::polish;
};

/// What a dark desktop does, at run time or at the start of the program.
const QList<std::pair<const char *, std::function<void()>>> &waysToTurnDark()
{
    static const QList<std::pair<const char *, std::function<void()>>> ways{
        {"palette of the application", []() { QApplication::setPalette(darkPalette()); }},
        {"palettes of classes",
         []() {
             for (const char *name :
                  {"QWidget", "QLabel", "QAbstractButton", "QAbstractItemView", "QLineEdit", "QMenu"}) {
                 QApplication::setPalette(darkPalette(), name);
             }
         }},
        {"style", []() { QApplication::setStyle(new DarkStyle); }},
        {"style, then palette",
         []() {
             QApplication::setStyle(new DarkStyle);
             QApplication::setPalette(darkPalette());
         }},
        {"the style's own palette",
         []() {
             QApplication::setStyle(new DarkStyle);
             QApplication::setPalette(QPalette());
         }},
        {"twice",
         []() {
             QApplication::setPalette(darkPalette());
             QApplication::setPalette(QPalette());
             QApplication::setPalette(darkPalette());
         }},
        {"theme",
         []() {
             QApplication::setStyle(new DarkStyle);
             const QWidgetList windows = QApplication::topLevelWidgets();
             for (QWidget *window : windows) {
                 QEvent event(QEvent::ThemeChange);
                 QCoreApplication::sendEvent(window, &event);
             }
         }},
    };
    return ways;
}

/// The first widget or role that differs from a light desktop; empty if there is none.
QString darkPartOf(const QWidget &window)
{
    QList<const QWidget *> widgets{&window};
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        widgets << widget;
    }
    for (const QWidget *widget : std::as_const(widgets)) {
        const QPalette palette = widget->palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const auto lightness = [&](QPalette::ColorRole role) { return palette.color(group, role).lightness(); };
            const bool light = lightness(QPalette::WindowText) < 128 && lightness(QPalette::Text) < 128 &&
                               lightness(QPalette::ButtonText) < 128 && lightness(QPalette::Base) > 200 &&
                               lightness(QPalette::Button) > 200;
            if (!light) {
                return QStringLiteral("%1 %2, group %3")
                    .arg(QLatin1String(widget->metaObject()->className()), widget->objectName())
                    .arg(group);
            }
        }
    }
    return {};
}

/// The share of dark pixels in the picture of a widget.
double darkShare(QWidget &widget)
{
    const QImage picture = widget.grab().toImage();
    int dark = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            dark += qGray(picture.pixel(x, y)) < 100 ? 1 : 0;
        }
    }
    return double(dark) / (picture.width() * picture.height());
}

} // namespace

class WidgetsLightLook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void darkFromTheStart_data() { addWays(); }
    void darkFromTheStart();
    void turnsDarkLater_data() { addWays(); }
    void turnsDarkLater();
    void looksTheSameOnEveryDesktop();

private:
    void addWays();
    void checkAllWindows(OpenWindow &window);
};

void WidgetsLightLook::init()
{
    failOnUnexpectedWarnings();
}

void WidgetsLightLook::cleanup()
{
    // Each test sets again what the program sets once.
    const QObjectList pinned = qApp->children();
    for (QObject *child : pinned) {
        if (child->objectName() == QLatin1String("lightLook")) {
            delete child;
        }
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(QPalette());
}

void WidgetsLightLook::addWays()
{
    QTest::addColumn<int>("way");
    for (int way = 0; way < waysToTurnDark().size(); ++way) {
        QTest::newRow(waysToTurnDark().at(way).first) << way;
    }
}

void WidgetsLightLook::checkAllWindows(OpenWindow &window)
{
    QCOMPARE(darkPartOf(window), QString());
    Setting setting;
    QCOMPARE(darkPartOf(setting), QString());
    about box;
    QCOMPARE(darkPartOf(box), QString());
    QMessageBox message(&window);
    message.setText(QStringLiteral("text"));
    QCOMPARE(darkPartOf(message), QString());
    QVERIFY(darkShare(window) < 0.2);
    QVERIFY(darkShare(setting) < 0.2);
}

void WidgetsLightLook::darkFromTheStart()
{
    QFETCH(const int, way);
    waysToTurnDark().at(way).second();
    keepLightLook();
    WindowFixture fixture;
    fixture.open();
    checkAllWindows(*fixture.window);
}

void WidgetsLightLook::turnsDarkLater()
{
    QFETCH(const int, way);
    keepLightLook();
    WindowFixture fixture;
    fixture.open();
    Setting open;
    waysToTurnDark().at(way).second();
    QCoreApplication::processEvents();
    QCOMPARE(darkPartOf(open), QString());
    checkAllWindows(*fixture.window);
}

void WidgetsLightLook::looksTheSameOnEveryDesktop()
{
    const auto picture = []() {
        WindowFixture fixture;
        fixture.open();
        fixture.outputLine()->setText(QStringLiteral("/out"));
        fixture.window->setFocus();
        return fixture.window->grab().toImage();
    };
    keepLightLook();
    const QImage before = picture();
    QApplication::setPalette(darkPalette());
    QCOMPARE(picture(), before);
    QApplication::setPalette(QPalette(QColor(200, 180, 140)));
    QCOMPARE(picture(), before);
}

QTEST_MAIN(WidgetsLightLook)
#include "widgets_light_look.moc"
