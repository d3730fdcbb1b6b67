// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "detailsdock.h"

#include "detailsmodel.h"
#include "detailstexts.h"

#include <halvora/connector.h>
#include <halvora/extendedtreeview.h>
#include <halvora/hdetailsrequest.h>
#include <halvora/hserver.h>
#include <halvora/nzbfailure.h>
#include <halvora/nzbloader.h>
#include <halvora/plaintooltip.h>
#include <halvora/stringformat.h>

#include <QDateTime>
#include <QDir>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int leastRows = 5;

QLabel *addLabel(QWidget *parent, const char *name)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A long word of somebody else's must not make the window as wide.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

} // namespace

DetailsDock::DetailsDock(Connector *connector, QWidget *parent)
    : FancyDockWidget(parent)
    , m_connector(connector)
    , m_loader(new NzbLoader(this))
    , m_model(new DetailsModel(this))
{
    setObjectName(QStringLiteral("DetailsDock"));
    build();
    connect(m_loader, &NzbLoader::loaded, this, &DetailsDock::showContents);
    connect(m_loader, &NzbLoader::failed, this, [this](const NzbFailure &failure) {
        tell([failure, name = m_name] { return failure.sentence(name); });
    });
    if (m_connector)
        connect(m_connector->server(), &HServer::stateChanged, this, &DetailsDock::ask);
    tell([] { return tr("Open an NZB file to see what is in it."); });
    retranslate();
}

DetailsDock::~DetailsDock() = default;

void DetailsDock::build()
{
    auto *content = new QWidget(this);
    m_title = addLabel(content, "detailsTitle");
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_summary = addLabel(content, "detailsSummary");
    m_message = addLabel(content, "detailsMessage");
    m_message->setAlignment(Qt::AlignCenter);
    m_view = new ExtendedTreeView(content);
    buildView();

    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);
    layout->addWidget(m_title);
    layout->addWidget(m_summary);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_message, 1);
    setWidget(content);
    setFocusProxy(m_view);
}

void DetailsDock::buildView()
{
    m_view->setObjectName(QStringLiteral("detailsList"));
    m_view->setRootIsDecorated(false);
    m_view->setItemsExpandable(false);
    m_view->setUniformRowHeights(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->setAlternatingRowColors(true);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setModel(m_model);
    m_view->header()->setSortIndicator(-1, Qt::AscendingOrder); // as the file has it
    m_view->setSortingEnabled(true);
    m_view->header()->setStretchLastSection(false);
    m_view->header()->setSectionsMovable(false);
    const QDateTime longDate(QDate(2000, 12, 30), QTime(20, 50, 50));
    resizeColumn(DetailsModel::SizeColumn, tr("1,000 bytes", "as wide as a size usually gets"));
    resizeColumn(DetailsModel::SegmentsColumn, tr("Segments") + QStringLiteral("nn"));
    resizeColumn(DetailsModel::NewsgroupsColumn, QString(14, QLatin1Char('n')));
    resizeColumn(DetailsModel::PostedColumn, StringFormat::dateTime(longDate, StringFormat::ShortDateTime));
    // Where the panel is low, the list still has some rows.
    m_view->setMinimumHeight(m_view->header()->sizeHint().height() +
                             leastRows * (fontMetrics().height() + 4) +
                             style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    // A scroll bar takes some of the width.
    connect(m_view->verticalScrollBar(), &QScrollBar::rangeChanged, this, &DetailsDock::arrangeColumns,
            Qt::QueuedConnection);
}

void DetailsDock::resizeColumn(int column, const QString &widest)
{
    const int margin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, m_view) + 1);
    m_view->header()->resizeSection(column, fontMetrics().horizontalAdvance(widest) + 2 * margin);
}

// The subjects have what the other columns leave, but so much at least that they can be told apart.
void DetailsDock::arrangeColumns()
{
    QHeaderView *header = m_view->header();
    const int others = header->length() - header->sectionSize(DetailsModel::SubjectColumn);
    const int least = fontMetrics().averageCharWidth() * 30;
    header->resizeSection(DetailsModel::SubjectColumn, qMax(least, m_view->viewport()->width() - others));
}

void DetailsDock::showFile(const QString &path)
{
    begin(DetailsTexts::fileName(path), QDir::toNativeSeparators(path));
    m_loader->load(path);
}

void DetailsDock::showFileGroup(const HStorageId &id)
{
    begin(DetailsTexts::fileName(id.toString()), QString());
    if (m_name.isEmpty())
        return tell([] { return tr("The link names no group of files."); });
    if (!HDetailsRequest::isAcceptable(id))
        return tell([name = m_name] { return tr("%1 can not be the name of a group of files.").arg(name); });
    if (!m_connector)
        return tell([name = m_name] {
            return tr("No provider plug-in is loaded that could be asked for %1.").arg(name);
        });
    m_awaited = id;
    ask();
    if (!m_request)
        tell([name = m_name] { return tr("Log in to see what is in %1.").arg(name); });
}

void DetailsDock::begin(const QString &name, const QString &hint)
{
    m_loader->cancel();
    m_awaited = HStorageId();
    m_request.reset();
    m_model->setEntries({});
    m_name = name;
    m_title->setToolTip(plainToolTip(hint));
    tell([name] { return tr("Reading %1…").arg(name); });
    show();
    raise();
}

void DetailsDock::ask()
{
    if (m_awaited.toString().isEmpty() || !m_connector->isLoginAvailable())
        return;
    m_request.reset(new HDetailsRequest(m_connector, std::exchange(m_awaited, HStorageId())));
    connect(m_request.data(), &HRequest::requestFinished, this,
            [this, request = m_request.data()] { takeAnswer(request); });
    tell([name = m_name] { return tr("Reading %1…").arg(name); });
    m_connector->server()->addRequestToQueue(m_request);
}

// Of a request that another one took the place of, nothing is wanted any more.
void DetailsDock::takeAnswer(const HDetailsRequest *from)
{
    if (from != m_request.data())
        return;
    const QSharedPointer<HDetailsRequest> request = std::exchange(m_request, {});
    if (request->isSuccessful())
        return showContents(request->file());
    tell([failure = request->failure(), name = m_name] {
        return tr("%1 can not be shown: %2").arg(name, failure.sentence());
    });
}

void DetailsDock::showContents(const NzbFile &file)
{
    const QString title = file.title();
    m_title->setText(title.isEmpty() ? m_name : title);
    m_totals = file.totals();
    m_view->header()->setSortIndicator(-1, Qt::AscendingOrder);
    m_model->setEntries(file.entries);
    m_view->scrollToTop();
    tell(nullptr);
}

void DetailsDock::tell(const Sentence &sentence)
{
    m_sentence = sentence;
    for (QWidget *part :
         {static_cast<QWidget *>(m_title), static_cast<QWidget *>(m_summary), static_cast<QWidget *>(m_view)})
        part->setVisible(!sentence);
    m_message->setVisible(bool(sentence));
    m_message->setText(sentence ? sentence() : QString());
    m_summary->setText(sentence ? QString() : DetailsTexts::summary(m_model->rowCount(), m_totals));
}

void DetailsDock::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    FancyDockWidget::changeEvent(event);
}

void DetailsDock::resizeEvent(QResizeEvent *event)
{
    FancyDockWidget::resizeEvent(event);
    arrangeColumns();
}

void DetailsDock::retranslate()
{
    setWindowTitle(tr("Details"));
    m_view->setAccessibleName(tr("Files"));
    m_model->retranslate();
    tell(Sentence(m_sentence));
}
