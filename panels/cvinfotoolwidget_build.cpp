// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "panels/cvinfotoolwidget_p.h"

#include "panels/cvinfotoolcustomwidget.h"

#include <halvora/hpixmaps.h>

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

// Names and figures come from the account service and are never read as markup.
QLabel *plainLabel(const char *objectName)
{
    auto *label = new QLabel;
    label->setObjectName(QLatin1String(objectName));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel *linkLabel(const char *objectName)
{
    auto *label = new QLabel;
    label->setObjectName(QLatin1String(objectName));
    label->setTextFormat(Qt::RichText);
    return label;
}

QLabel *iconLabel(const QString &path, int size)
{
    auto *label = new QLabel;
    label->setPixmap(hSvgPixmap(path, size));
    return label;
}

QWidget *linkRow(const QString &icon, QLabel *link)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(iconLabel(icon, 16));
    layout->addWidget(link);
    return row;
}

} // namespace

void CVInfoToolWidgetPrivate::build()
{
    m_pages = new QStackedWidget;
    m_pages->addWidget(new QWidget);
    m_pages->addWidget(buildLoginPage());
    m_pages->addWidget(buildAccountPage());

    auto *content = new CVInfoToolCustomWidget(q);
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pages);
    q->setWidget(content);
}

QWidget *CVInfoToolWidgetPrivate::buildLoginPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(4, 4, 4, 4);
    m_user = plainLabel("user");
    layout->addWidget(m_user);
    layout->addStretch();
    if (stats) {
        layout->addLayout(buildTraffic());
        layout->addStretch();
    }
    layout->addLayout(buildLinks());
    return page;
}

QLayout *CVInfoToolWidgetPrivate::buildTraffic()
{
    m_todayCaption = plainLabel("todayCaption");
    m_today = plainLabel("today");
    m_monthCaption = plainLabel("monthCaption");
    m_month = plainLabel("month");

    auto *grid = new QGridLayout;
    grid->setSpacing(6);
    grid->setColumnMinimumWidth(1, 10);
    grid->setColumnMinimumWidth(3, 5);
    grid->addWidget(iconLabel(QStringLiteral(":/svg/gauge.svg"), 32), 0, 0, 2, 1,
                    Qt::AlignHCenter | Qt::AlignTop | Qt::AlignVCenter);
    grid->addWidget(m_todayCaption, 0, 2);
    grid->addWidget(m_monthCaption, 0, 4);
    grid->addWidget(m_today, 1, 2);
    grid->addWidget(m_month, 1, 4);

    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addLayout(grid);
    row->addStretch();
    return row;
}

QLayout *CVInfoToolWidgetPrivate::buildLinks()
{
    auto *row = new QHBoxLayout;
    m_controlPanelLink = linkLabel("controlPanelLink");
    m_controlPanelRow = linkRow(QStringLiteral(":/svg/lock.svg"), m_controlPanelLink);
    m_controlPanelRow->setObjectName(QStringLiteral("controlPanelRow"));
    m_controlPanelRow->hide();
    QObject::connect(m_controlPanelLink, &QLabel::linkActivated, q, &CVInfoToolWidget::linkActivated);
    row->addWidget(m_controlPanelRow);
    row->addStretch();
    if (stats) {
        m_statsLink = linkLabel("statsLink");
        QObject::connect(m_statsLink, &QLabel::linkActivated, q, &CVInfoToolWidget::linkActivated);
        row->addWidget(linkRow(QStringLiteral(":/svg/chart_area.svg"), m_statsLink));
    }
    return row;
}

QWidget *CVInfoToolWidgetPrivate::buildAccountPage()
{
    auto *form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight);
    form->setSpacing(4);
    const auto addRow = [form](QLabel *&caption, QLabel *&value, const char *captionName,
                               const char *valueName) {
        caption = plainLabel(captionName);
        value = plainLabel(valueName);
        form->addRow(caption, value);
    };
    addRow(m_billingCaption, m_billing, "billingCaption", "billing");
    addRow(m_mtdCaption, m_mtd, "mtdCaption", "mtd");
    addRow(m_connectionsCaption, m_connections, "connectionsCaption", "connections");
    addRow(m_planCaption, m_plan, "planCaption", "plan");

    auto *centred = new QHBoxLayout;
    centred->addStretch();
    centred->addLayout(form);
    centred->addStretch();
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->addLayout(centred);
    layout->addStretch();
    return page;
}
