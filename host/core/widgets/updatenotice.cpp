// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "updatenotice.h"

#include <halvora/core.h>
#include <halvora/hpixmaps.h>

#include "elidedlabel.h"
#include <halvora/plaintooltip.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>

namespace {

QUrl webAddress(const QString &text)
{
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    const bool web = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    return web && url.isValid() && !url.host().isEmpty() ? url : QUrl();
}

QColor tinted(const QColor &color)
{
    const QColor blue(0x33, 0x99, 0xff);
    return {(color.red() * 4 + blue.red()) / 5, (color.green() * 4 + blue.green()) / 5,
            (color.blue() * 4 + blue.blue()) / 5};
}

} // namespace

UpdateNotice::UpdateNotice(QWidget *parent)
    : QToolBar(parent)
    , m_text(new ElidedLabel(this))
{
    setObjectName(QStringLiteral("halvora.updateNotice"));
    setMovable(false);
    setFloatable(false);

    auto *symbol = new QLabel(this);
    symbol->setPixmap(hSvgPixmap(QStringLiteral(":/icons/update.svg"), 16));
    m_text->setObjectName(QStringLiteral("halvora.updateText"));
    // A long note is cut off; it must not push the buttons off the bar.
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_show = addButton(QStringLiteral("halvora.updateShow"));
    m_dismiss = addButton(QStringLiteral("halvora.updateDismiss"));

    auto *line = new QWidget(this);
    line->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(6, 1, 2, 2);
    layout->addWidget(symbol);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_show);
    layout->addWidget(m_dismiss);
    addWidget(line);

    connect(m_show, &QPushButton::clicked, this, [this] { Q_EMIT linkRequested(m_link); });
    connect(m_dismiss, &QPushButton::clicked, this, &QWidget::hide);
    retranslate();
    hide();
}

QPushButton *UpdateNotice::addButton(const QString &name)
{
    auto *button = new QPushButton(this);
    button->setObjectName(name);
    return button;
}

void UpdateNotice::offer(const SoftwareUpdate &update)
{
    m_version = update.version.left(100).simplified();
    m_note = update.note;
    m_link = webAddress(update.url);
    m_show->setVisible(!m_link.isEmpty());
    m_show->setToolTip(plainToolTip(m_link.toDisplayString()));
    retranslate();
    show();
}

void UpdateNotice::retranslate()
{
    setWindowTitle(tr("Newer Version"));
    const QString sentence = m_version.isEmpty() ? tr("A newer version is available.")
                                                 : tr("Version %1 is available.").arg(m_version);
    m_text->showText(sentence + QLatin1Char(' ') + m_note);
    m_show->setText(tr("Show"));
    m_show->setAccessibleName(tr("Show what is new in the browser"));
    m_dismiss->setText(tr("Dismiss"));
}

void UpdateNotice::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    const QColor background = tinted(palette().color(QPalette::Window));
    painter.fillRect(rect(), background);
    painter.fillRect(0, height() - 1, width(), 1, tinted(background));
}

void UpdateNotice::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QToolBar::changeEvent(event);
}
