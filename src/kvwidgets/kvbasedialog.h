// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVBASEDIALOG_H
#define KV_KVBASEDIALOG_H

#include "kvwidgets_export.h"

#include <QDialog>

#include <memory>

class QDialogButtonBox;
class QPushButton;
class QVBoxLayout;
class KvBaseDialogPrivate;

/**
 * A dialog with a main vertical layout and OK and Cancel below it.
 *
 * Subclasses insert their fields into mainLayout() (above the buttons),
 * override isValid() to say when the data may be accepted, and override
 * connectSignals() to connect their editors' change signals to
 * onDataChanged(). The hook runs once, when the dialog is first shown, so
 * that values set between construction and exec() are tested too; OK is
 * enabled exactly while isValid() holds, and accept() refuses otherwise.
 * Return presses OK, never Cancel.
 */
class KVWIDGETS_EXPORT KvBaseDialog : public QDialog
{
    Q_OBJECT
public:
    explicit KvBaseDialog(QWidget *parent = nullptr);
    ~KvBaseDialog() override;

    QVBoxLayout *mainLayout() const;
    QDialogButtonBox *buttonBox() const;
    QPushButton *okButton() const;

    /// True when the data may be accepted; the default accepts anything.
    virtual bool isValid() const;

public Q_SLOTS:
    /// Re-tests isValid() and enables OK accordingly.
    virtual void onDataChanged();
    void accept() override;

protected:
    /// Connect the editors' change signals to onDataChanged(); the default connects nothing.
    virtual void connectSignals();
    void showEvent(QShowEvent *event) override;

private:
    std::unique_ptr<KvBaseDialogPrivate> const d;
};

#endif
