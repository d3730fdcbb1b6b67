// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "privatedataoptions.h"

#include <halvora/privatedataregistry.h>

#include <QEvent>
#include <QLabel>
#include <QMetaProperty>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

// What a person can change in a widget is its user property: whether a box is checked, a line's text.
void takeChoice(const QWidget &before, QWidget *after)
{
    const QMetaProperty choice = before.metaObject()->userProperty();
    if (choice.isValid() && after->metaObject() == before.metaObject())
        choice.write(after, choice.read(&before));
}

constexpr int sentenceWidth = 56; // letters; a page of the settings is a little wider

// As far in as the words beside a check box. A page of tabs does not grow with text that wraps, so the height
// for the least width is asked for at once.
QLabel *makeSentence(const QWidget &widget)
{
    auto *sentence = new QLabel(widget.accessibleDescription());
    sentence->setTextFormat(Qt::PlainText);
    sentence->setWordWrap(true);
    const QStyle *style = widget.style();
    sentence->setIndent(style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &widget) +
                        style->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, &widget));
    const int width = sentenceWidth * sentence->fontMetrics().averageCharWidth();
    sentence->setMinimumSize(width, sentence->heightForWidth(width));
    return sentence;
}

} // namespace

PrivateDataOptions::PrivateDataOptions(const PrivateDataRegistry &registry, QWidget *parent)
    : QWidget(parent)
    , m_registry(registry)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 0, 0, 0);
    layout->setSpacing(14);
    make();
}

bool PrivateDataOptions::isEmpty() const
{
    return std::all_of(m_groups.cbegin(), m_groups.cend(),
                       [](const Group &group) { return group.widgets.isEmpty(); });
}

void PrivateDataOptions::make()
{
    const QList<IPrivateData *> parts = m_registry.parts();
    for (IPrivateData *part : parts) {
        auto *box = new QWidget(this);
        auto *lines = new QVBoxLayout(box);
        lines->setContentsMargins(0, 0, 0, 0);
        lines->setSpacing(6);
        const QList<QWidget *> widgets = part->createOptionWidgets();
        for (QWidget *widget : widgets) {
            lines->addWidget(widget);
            if (!widget->accessibleDescription().isEmpty())
                lines->addWidget(makeSentence(*widget));
        }
        layout()->addWidget(box);
        box->setHidden(widgets.isEmpty());
        m_groups.append({part, box, widgets});
    }
}

void PrivateDataOptions::save()
{
    for (const Group &group : qAsConst(m_groups)) {
        if (isThere(group))
            group.part->saveOptions(group.widgets);
    }
}

void PrivateDataOptions::clear()
{
    for (const Group &group : qAsConst(m_groups)) {
        if (isThere(group))
            group.part->clearPrivateData(group.widgets);
    }
}

void PrivateDataOptions::reload()
{
    const QList<Group> before = std::exchange(m_groups, {});
    for (const Group &group : before)
        delete group.box;
    make();
}

void PrivateDataOptions::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        makeInTheNewLanguage();
    QWidget::changeEvent(event);
}

// A part words its widgets when it makes them.
void PrivateDataOptions::makeInTheNewLanguage()
{
    const QList<Group> before = std::exchange(m_groups, {});
    make();
    for (const Group &group : before) {
        takeChoices(group);
        delete group.box;
    }
}

void PrivateDataOptions::takeChoices(const Group &before) const
{
    for (const Group &group : m_groups) {
        if (group.part != before.part || group.widgets.size() != before.widgets.size())
            continue;
        for (int i = 0; i < group.widgets.size(); ++i)
            takeChoice(*before.widgets.at(i), group.widgets.at(i));
    }
}

// A plug-in may take its parts along while the widgets are shown.
bool PrivateDataOptions::isThere(const Group &group) const
{
    return m_registry.parts().contains(group.part);
}
