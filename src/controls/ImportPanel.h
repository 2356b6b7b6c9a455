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

/// Previews what each line of a text becomes before its rows are added, and asks for what the text
/// does not say. Reads the text on another thread.
class ImportPanel : public QDialog {
    Q_OBJECT

public:
    /// source: called on another thread.
    ImportPanel(const QString& title, const ReadingOptions& options,
                const std::function<FileText()>& source, QWidget* parent);

    /// The rows to add; empty if cancelled.
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
    int m_reading = 0; ///< number of the current reading; results of earlier ones are discarded
};

} // namespace vexa
