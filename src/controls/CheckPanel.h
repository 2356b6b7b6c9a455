#pragma once

#include "check/list_check.h"

#include <QAbstractListModel>
#include <QDialog>
#include <QTimer>

#include <vector>

class QLabel;
class QListView;
class QSpinBox;

namespace vexa {

class VexaBatchTableView;
class Vexa_RemoteAppDelegate;

/// The findings about the list, in words.
class FindingsModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setFindings(std::vector<Finding> findings);
    const std::vector<Finding>& findings() const { return m_findings; }
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<Finding> m_findings;
};

/// Lists the findings about the batch list while it is shown, and follows every change of the list.
/// Choosing a finding shows its row in the table.
class CheckPanel : public QDialog {
    Q_OBJECT

public:
    /// controller and table must outlive it.
    CheckPanel(Vexa_RemoteAppDelegate& controller, VexaBatchTableView& table, QWidget* window);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void moveBeside(const QWidget& window);
    void check();
    void checkSoon();
    void goTo(const QModelIndex& index);

    Vexa_RemoteAppDelegate& m_controller;
    VexaBatchTableView& m_table;
    FindingsModel m_model;
    QTimer m_soon;
    QLabel* m_summary;
    QListView* m_list;
    QSpinBox* m_minutes;
};

} // namespace vexa
