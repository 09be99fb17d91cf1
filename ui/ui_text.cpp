#include "ui/ui_text.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QVariant>

#include "ui/qt_text.h"

namespace orvane {
namespace {

constexpr const char* kTextSection = "textSection";
constexpr const char* kTextKey = "textKey";
constexpr const char* kTipSection = "tipSection";
constexpr const char* kTipKey = "tipKey";

void applyText(QObject* object, const QString& text) {
    if (auto* action = qobject_cast<QAction*>(object)) {
        action->setText(text);
    } else if (auto* menu = qobject_cast<QMenu*>(object)) {
        menu->setTitle(text);
    } else if (auto* button = qobject_cast<QAbstractButton*>(object)) {
        button->setText(text);
    } else if (auto* label = qobject_cast<QLabel*>(object)) {
        label->setText(text);
    }
}

void applyTip(QObject* object, const QString& tip) {
    if (auto* action = qobject_cast<QAction*>(object)) {
        action->setToolTip(tip);
    } else if (auto* widget = qobject_cast<QWidget*>(object)) {
        widget->setToolTip(tip);
    }
}

void retitleOne(QObject* object) {
    const QVariant section = object->property(kTextSection);
    if (section.isValid())
        applyText(object, qtText(static_cast<Section>(section.toInt()), object->property(kTextKey).toInt()));
    const QVariant tipSection = object->property(kTipSection);
    if (tipSection.isValid())
        applyTip(object, qtText(static_cast<Section>(tipSection.toInt()), object->property(kTipKey).toInt()));
}

}  // namespace

void bindText(QObject* object, Section section, int key) {
    object->setProperty(kTextSection, static_cast<int>(section));
    object->setProperty(kTextKey, key);
    applyText(object, qtText(section, key));
}

void bindTip(QObject* object, Section section, int key) {
    object->setProperty(kTipSection, static_cast<int>(section));
    object->setProperty(kTipKey, key);
    applyTip(object, qtText(section, key));
}

void setControlId(QObject* object, int id) { object->setProperty("controlId", id); }

void retitleTexts(QObject* root) {
    retitleOne(root);
    for (QObject* child : root->findChildren<QObject*>()) retitleOne(child);
}

}  // namespace orvane
