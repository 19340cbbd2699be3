// TMagiForm: the physician's own magistral recipes ("Saját Magi receptek"): a named list of free-text
// recipes, added, changed and deleted here and kept in MagiList.txt and one file per recipe.
// MagiList is the name box: an edit line (MagiListEdit) over the list of names (MagiList), which the
// edit line filters as one types.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "db/Message.h"
#include "views/forms/kit/Lists.h"

namespace rovanel
{
struct SharedState;
class MagiStore;
}  // namespace rovanel

class QLineEdit;
class QListWidget;
class QPlainTextEdit;

class TMagiForm : public QWidget
{
    Q_OBJECT
public:
    explicit TMagiForm(rovanel::SharedState& state, QWidget* parent = nullptr);
    ~TMagiForm() override;

    // The prescription window's item-adding operation, called on a right-button press on the text.
    void setPrescriptionHandover(rovanel::forms::PrescriptionHandover handover)
    {
        m_handover = std::move(handover);
    }

public slots:
    void MagiListChange();
    void MagiAddClick();
    void MagiDelClick();
    void MagiModClick();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FormCreate();
    void fillNames();
    void tell(const std::optional<rovanel::Message>& message);

    rovanel::SharedState& m_state;
    rovanel::forms::PrescriptionHandover m_handover;  // none until a prescription window is attached
    std::unique_ptr<rovanel::MagiStore> m_store;
    std::optional<rovanel::Message> m_openMessage;  // shown at the first showing
    QLineEdit* m_name = nullptr;
    QListWidget* m_names = nullptr;
    QPlainTextEdit* m_text = nullptr;
};
