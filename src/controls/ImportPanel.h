#pragma once

#include "controls/ReadRowsModel.h"
#include "interchange/read_rows.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <optional>

class QComboBox;
class QLabel;
class QPushButton;
class QTableView;

namespace vexa {

/// Shows what becomes of each line of a text before its rows are taken, and asks for what the text
/// does not tell. The text is read on another thread.
class ImportPanel : public QDialog {
    Q_OBJECT

public:
    /// source: called on another thread.
    ImportPanel(const QString& title, const ReadingOptions& options,
                const std::function<FileText()>& source, QWidget* parent);

    /// The rows that the operator wants added; nothing when cancelled.
    std::optional<ReadRows> ask();

private:
    void build();
    void setColumnWidths();
    QComboBox* addChoice(const QString& name, const QStringList& choices, std::uint64_t chosen);
    void load(const std::function<FileText()>& source);
    void read();
    void show(const ReadRows& rows);
    ReadingOptions options() const;

    std::shared_ptr<const FileText> m_source;
    ReadRowsModel m_model;
    QLabel* m_summary;
    QTableView* m_lines;
    QComboBox* m_rate;
    QComboBox* m_type;
    QComboBox* m_times;
    QPushButton* m_add;
    int m_reading = 0; ///< counts; what an earlier one brings is out of date
};

} // namespace vexa
