#include "certs/forms/Kgy.h"

#include <QDate>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "app/IniFile.h"
#include "app/UserPaths.h"
#include "app/forms/Help.h"
#include "app/forms/ShowMessage.h"
#include "certs/PublicCareCertificate.h"
#include "db/SharedState.h"
#include "rx/forms/PrintRenderer.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

namespace
{

std::filesystem::path patientIniPath(const std::filesystem::path& dataDirectory)
{
    return rovanel::readProfileString(rovanel::settingsFilePath(dataDirectory), rovanel::kSettingsSection,
                                      "BetegAdatokIniPath", "");
}

}  // namespace

TKgyForm::TKgyForm(rovanel::SharedState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setObjectName("KgyForm");
    setWindowTitle(QStringLiteral("Közgyógy igazolás"));
    setHelpContext(this, 720);
    rovanel::forms::rememberGeometry(this, QSize(720, 540));
    m_k = new QTextEdit(this);
    m_k->setObjectName("k");
    // Long lines (the headings, the declaration) wrap at the window's width: the whole certificate reads
    // without scrolling sideways. Printing lays the document out anew for the page.
    m_k->setLineWrapMode(QTextEdit::WidgetWidth);
    m_k->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    const auto button = [this](const char* name, const QString& caption, void (TKgyForm::*handler)()) {
        auto* pushButton = new QPushButton(caption, this);
        pushButton->setObjectName(name);
        connect(pushButton, &QPushButton::clicked, this, handler);
        return pushButton;
    };
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(button("KgyPrint", QStringLiteral("Nyomtat"), &TKgyForm::KgyPrintClick));
    buttons->addWidget(button("KgyPreview", QStringLiteral("Előkép"), &TKgyForm::KgyPreviewClick));
    buttons->addWidget(button("KgyPdf", QStringLiteral("PDF"), &TKgyForm::KgyPdfClick));
    buttons->addStretch();
    buttons->addWidget(button("KgyEmptyList", QStringLiteral("Listát kiürít"), &TKgyForm::KgyEmptyListClick));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_k);
    layout->addLayout(buttons);
}

void TKgyForm::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    FormShow();
}

void TKgyForm::FormShow()
{
    const std::filesystem::path directory = m_state.tables.dataDirectory;
    const rovanel::PublicCareCertificate certificate = rovanel::buildPublicCareCertificate(
        rovanel::publicCareTextPath(directory), patientIniPath(directory),
        QDate::currentDate().toString(QStringLiteral("yyyyMMdd")).toStdString());
    if (certificate.message) showMessage(this, *certificate.message);
    m_k->clear();
    QTextCursor cursor(m_k->document());
    QTextCharFormat plain;
    plain.setFontFamilies({QStringLiteral("Arial")});
    plain.setFontPointSize(10);
    QTextCharFormat heading = plain;
    heading.setFontWeight(QFont::Bold);
    bool first = true;
    for (const rovanel::CertificateParagraph& paragraph : certificate.paragraphs) {
        if (!first) cursor.insertBlock();
        first = false;
        cursor.insertText(rovanel::forms::fromCp1250(paragraph.text), paragraph.heading ? heading : plain);
    }
    m_k->moveCursor(QTextCursor::Start);
}

void TKgyForm::KgyPrintClick() { rovanel::forms::printDocumentNow(this, *m_k->document()); }

void TKgyForm::KgyPreviewClick() { rovanel::forms::previewDocument(this, *m_k->document()); }

void TKgyForm::KgyPdfClick()
{
    rovanel::forms::saveDocumentPdfAsked(this, *m_k->document(), QStringLiteral("kozgyogy-igazolas.pdf"));
}

void TKgyForm::KgyEmptyListClick()
{
    rovanel::deletePublicCareList(rovanel::publicCareTextPath(m_state.tables.dataDirectory));
}
