// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/fancydockwidget.h>
#include <halvora/hstorageid.h>
#include <halvora/nzbfile.h>

#include <QSharedPointer>

#include <functional>

class Connector;
class DetailsModel;
class ExtendedTreeView;
class HDetailsRequest;
class NzbLoader;
class QLabel;

/// The panel that shows what is in an NZB file, or in a group of files that the account service knows.
/// Whatever is asked for shows and raises the panel and takes the place of what was there before; what can
/// not be shown is told there in one sentence. GUI thread.
class DetailsDock final : public FancyDockWidget {
    Q_OBJECT
public:
    /// @p connector outlives the panel; null when there is no account service to ask.
    explicit DetailsDock(Connector *connector, QWidget *parent = nullptr);
    ~DetailsDock() override;

    /// Reads the file at @p path, which may be anything, without holding the program up.
    void showFile(const QString &path);
    /// Asks the account service for the group of files that @p id names, which may be anything. Without a
    /// login the panel says so and asks as soon as there is one.
    void showFileGroup(const HStorageId &id);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    using Sentence = std::function<QString()>;

    void build();
    void buildView();
    void begin(const QString &name, const QString &hint);
    void ask();
    void takeAnswer(const HDetailsRequest *from);
    void showContents(const NzbFile &file);
    void tell(const Sentence &sentence);
    void arrangeColumns();
    void resizeColumn(int column, const QString &widest);
    void retranslate();

    Connector *const m_connector;
    NzbLoader *m_loader;
    DetailsModel *m_model;
    QLabel *m_title;
    QLabel *m_summary;
    QLabel *m_message;
    ExtendedTreeView *m_view;
    HStorageId m_awaited;                      ///< to be asked for at the next login; empty for nothing
    QSharedPointer<HDetailsRequest> m_request; ///< whose answer is waited for
    QString m_name;                            ///< of what is shown or could not be shown; one line
    NzbFile::Totals m_totals;
    Sentence
        m_sentence; ///< what is told instead of the contents, in the language of the moment; may be empty
};
