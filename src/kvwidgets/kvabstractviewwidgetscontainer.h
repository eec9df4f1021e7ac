// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVABSTRACTVIEWWIDGETSCONTAINER_H
#define KV_KVABSTRACTVIEWWIDGETSCONTAINER_H

#include "kvwidgets_export.h"

#include "kvcore.h"

#include <QModelIndexList>
#include <QWidget>

#include <memory>

class KvAbstractViewWidget;
class KvBaseFormDialog;
class KvAbstractViewWidgetsContainerPrivate;

/**
 * Owns view widgets, each under an id, and carries out their requests.
 *
 * New and copied rows are appended to the model behind the view (past any
 * proxies) and, like edited rows, opened in the view widget's form dialog.
 * The form is created by the name it was registered under with Qt's
 * meta-type system, so register the form's pointer type under that name,
 * qRegisterMetaType<MyForm *>("MyForm"), and give it a Q_INVOKABLE
 * constructor taking the parent widget. An accepted form submits the
 * model and makes its row current; a cancelled new or copied row is
 * removed again. Deleting asks first, then removes the rows and submits.
 *
 * Subclasses lay the view widgets out and react through the hooks, which
 * do nothing by default except where noted. The flag of afterEditRecord()
 * is true when the form was cancelled; that of searchTextEdited() asks for
 * a case-sensitive search. The container's name is the settings group of
 * its views' layouts (the views' default group when empty).
 */
class KVWIDGETS_EXPORT KvAbstractViewWidgetsContainer : public QWidget
{
    Q_OBJECT
public:
    explicit KvAbstractViewWidgetsContainer(const QString &name, QWidget *parent = nullptr);
    ~KvAbstractViewWidgetsContainer() override;

    QString name() const;

    /// Takes ownership of widget; formDialogName names the form for its rows. Returns the widget's id.
    int addViewWidget(KvAbstractViewWidget *widget, const QByteArray &formDialogName = QByteArray());
    KvAbstractViewWidget *viewWidget(int viewId) const;
    QList<int> viewIds() const;

    void readSettings();
    void saveSettings();

    /// The requests of the view widgets; indexes are those of the view's model. True when carried out.
    bool newRecord(int viewId);
    bool copyRecord(int viewId, const QModelIndex &index);
    bool editRecord(int viewId, const QModelIndex &index);
    bool deleteRecords(int viewId, const QModelIndexList &indexes);

    /// Before the copy's form opens; the default copies every column of source into target.
    virtual void beforeCopyRecord(int viewId, const QModelIndex &source, const QModelIndex &target);
    /// Before the form opens on sourceIndex's row, for new, copied and edited rows alike.
    virtual void beforeEditRecord(int viewId, const QModelIndex &sourceIndex, KvCore::EditTypes editType);
    /// After a form closed; id is the row's first column, invalid once a cancelled new row is gone.
    virtual void afterEditRecord(int viewId, const QVariant &id, KvCore::EditTypes editType, bool cancelled);
    virtual void afterDeleteRecords(int viewId);
    /**
     * The view widget's search text changed. The default searches the
     * view's visible columns when the view shows a KvSortFilterProxyModel,
     * and makes the first row found current.
     */
    virtual void searchTextEdited(int viewId, const QString &text, bool caseSensitive);
    virtual void viewClicked(int viewId, const QModelIndex &index);

protected:
    /// The form registered as name, child of this widget; null when there is none.
    KvBaseFormDialog *createFormDialog(const QByteArray &name);

private:
    bool openForm(int viewId, const QModelIndex &sourceIndex, KvCore::EditTypes editType);

    std::unique_ptr<KvAbstractViewWidgetsContainerPrivate> const d;
};

#endif
