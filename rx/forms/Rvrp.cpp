#include "rx/forms/Rvrp.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/RegistrySettings.h"
#include "app/forms/Help.h"
#include "app/forms/ShowMessage.h"
#include "db/AtcCode.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/DescriptionBuilder.h"
#include "db/SharedState.h"
#include "rx/BnoRules.h"
#include "rx/BnoTree.h"
#include "rx/DsList.h"
#include "rx/Latin.h"
#include "rx/PatientData.h"
#include "rx/Qualification.h"
#include "rx/forms/BnoTreeView.h"
#include "rx/forms/PrintRenderer.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

using rovanel::forms::fromCp1250;

namespace
{

std::string toCp1250(const QString& text) { return rovanel::utf8ToCp1250(text.toUtf8().toStdString()); }

rovanel::Message message(const char* utf8, rovanel::MessageIcon icon = rovanel::MessageIcon::Warning)
{
    return rovanel::Message{rovanel::utf8ToCp1250(utf8), "", icon};
}

QLineEdit* edit(const char* name, QWidget* parent)
{
    auto* result = new QLineEdit(parent);
    result->setObjectName(name);
    return result;
}

QPushButton* button(const char* name, const char* caption, QWidget* parent)
{
    auto* result = new QPushButton(QString::fromUtf8(caption), parent);
    result->setObjectName(name);
    return result;
}

// tamttt.dat and szvhr.dat, read once per run at the first showing of the window.
struct RunFiles {
    bool read = false;
    std::string tamttt;
    std::string szvhr;
};
RunFiles& runFiles()
{
    static RunFiles files;
    return files;
}

// Lower case without accents, so that "szivbet" finds "Szívbetegség" as one types.
QString folded(const QString& text)
{
    QString out;
    for (const QChar c : text.normalized(QString::NormalizationForm_D))
        if (c.category() != QChar::Mark_NonSpacing) out += c.toLower();
    return out;
}

constexpr const char* kCodeTable = "Kódtábla";
constexpr const char* kInsert = "Beilleszt";

}  // namespace

TRp::TRp(rovanel::SharedState& state, std::filesystem::path dataDirectory, QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_state(state),
      m_dataDirectory(std::move(dataDirectory)),
      m_patientIni(rovanel::patientDataPath(m_dataDirectory)),
      m_dosageList(rovanel::userDosageListPath()),
      m_today(QDate::currentDate().toString("yyyyMMdd").toStdString())
{
    setObjectName("Rp");
    setWindowTitle(QString::fromUtf8("Recept"));
    setHelpContext(this, 600);
    buildControls();
    rovanel::forms::rememberGeometry(this, QSize(1300, 700));
}

void TRp::buildControls()
{
    // Patient and prescriber.
    auto* patient = new QGroupBox(QString::fromUtf8("Beteg"), this);
    auto* patientForm = new QFormLayout(patient);
    BetegNev = edit("BetegNev", patient);
    BetegCim1 = edit("BetegCim1", patient);
    BetegCim2 = edit("BetegCim2", patient);
    BetegSzulDat = edit("BetegSzulDat", patient);
    BetegKora = edit("BetegKora", patient);
    BetegKora->setReadOnly(true);
    BetegENY = edit("BetegENY", patient);
    BetegEU = edit("BetegEU", patient);
    BetegTAJ = edit("BetegTAJ", patient);
    BetegBNO = edit("BetegBNO", patient);
    BnoKodok = button("BnoKodok", kCodeTable, patient);
    VenyNo = edit("VenyNo", patient);
    FelirDat = edit("FelirDat", patient);
    FelirDat->setInputMask("99999999");
    EuRendEdt = edit("EuRendEdt", patient);
    auto* bno = new QHBoxLayout;
    bno->addWidget(BetegBNO);
    bno->addWidget(BnoKodok);
    patientForm->addRow(QString::fromUtf8("Név:"), BetegNev);
    patientForm->addRow(QString::fromUtf8("Irsz, helység:"), BetegCim1);
    patientForm->addRow(QString::fromUtf8("Utca, Hsz:"), BetegCim2);
    patientForm->addRow(QString::fromUtf8("Szül. dat.:"), BetegSzulDat);
    patientForm->addRow(QString::fromUtf8("Életkor"), BetegKora);
    patientForm->addRow(QString::fromUtf8("Beteg ENY:"), BetegENY);
    patientForm->addRow(QString::fromUtf8("Beteg EU:"), BetegEU);
    patientForm->addRow(QString::fromUtf8("Beteg TAJ:"), BetegTAJ);
    patientForm->addRow(QString::fromUtf8("BNO:"), bno);
    patientForm->addRow(QString::fromUtf8("Vény sorszáma:"), VenyNo);
    patientForm->addRow(QString::fromUtf8("Felírás dátuma"), FelirDat);
    patientForm->addRow(QString::fromUtf8("Eü. rendelet"), EuRendEdt);

    // Titles and package forms, two columns each.
    JogcimGrp = new QGroupBox(QString::fromUtf8("Jogcím"), this);
    JogcimGrp->setObjectName("JogcimGrp");
    auto* titles = new QGridLayout(JogcimGrp);
    const rovanel::TitleCaptions& defaults = rovanel::defaultTitleCaptions();
    for (int i = 0; i < rovanel::kTitleCount; ++i) {
        auto* radio = new QRadioButton(fromCp1250(defaults[static_cast<std::size_t>(i)]), JogcimGrp);
        radio->setObjectName(QString("JogcimGrp%1").arg(i));
        titles->addWidget(radio, i % 5, i / 5);
        connect(radio, &QRadioButton::clicked, this, [this, i] { JogcimGrpClick(i); });
        m_titles.push_back(radio);
    }
    m_titles[0]->setChecked(true);
    KiszertipGrp = new QGroupBox(QString::fromUtf8("Kiszerelés típusa"), this);
    KiszertipGrp->setObjectName("KiszertipGrp");
    auto* forms = new QGridLayout(KiszertipGrp);
    const auto& words = rovanel::packageFormWords();
    for (std::size_t i = 0; i < words.size(); ++i) {
        auto* radio = new QRadioButton(fromCp1250(words[i]), KiszertipGrp);
        radio->setObjectName(QString("KiszertipGrp%1").arg(i));
        forms->addWidget(radio, static_cast<int>(i % 6), static_cast<int>(i / 6));
        connect(radio, &QRadioButton::clicked, this, &TRp::refreshPreview);
        m_packageForms.push_back(radio);
    }
    m_packageForms[0]->setChecked(true);

    // The drug line.
    RpPanel = new QWidget(this);
    RpPanel->setObjectName("RpPanel");
    auto* drug = new QFormLayout(RpPanel);
    GyogyszerNev = edit("GyogyszerNev", RpPanel);
    Mennyiseg = edit("Mennyiseg", RpPanel);
    MennyisegLatinul = edit("MennyisegLatinul", RpPanel);
    RpDsList = new QComboBox(RpPanel);
    RpDsList->setObjectName("RpDsList");
    RpDsList->setEditable(true);
    RpDsList->setInsertPolicy(QComboBox::NoInsert);
    RpDsList->setToolTip(QString::fromUtf8("Lista szerkeszthető: DsList.txt"));
    DsAd = button("DsAd", "Szerkesztősor tartalmát menti", RpPanel);
    DsTorol = button("DsTorol", "Töröl", RpPanel);
    GyogyszerDs = new QPlainTextEdit(RpPanel);
    GyogyszerDs->setObjectName("GyogyszerDs");
    GyogyszerDs->setMaximumHeight(70);
    Masolat = new QCheckBox(QString::fromUtf8("Másolat"), RpPanel);
    Masolat->setObjectName("Masolat");
    NemHelyett = new QCheckBox(QString::fromUtf8("Nem helyettesíthető"), RpPanel);
    NemHelyett->setObjectName("NemHelyett");
    auto* specialist = new QGroupBox(QString::fromUtf8("Szakorvosi javaslat adatai"), RpPanel);
    specialist->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* specialistRow = new QFormLayout(specialist);
    SzoAzon = edit("SzoAzon", specialist);
    NaploSzam = edit("NaploSzam", specialist);
    SzoJavDatum = edit("SzoJavDatum", specialist);
    specialistRow->addRow(QString::fromUtf8("Azon"), SzoAzon);
    specialistRow->addRow(QString::fromUtf8("Naplószám"), NaploSzam);
    specialistRow->addRow(QString::fromUtf8("Dátum"), SzoJavDatum);
    // Opens the recommendation window with this prescription's drug and patient.
    RpSzakJav = button("RpSzakJav", "Szakorvosi javaslat", specialist);
    RpSzakJav->setEnabled(false);
    specialistRow->addRow(QString(), RpSzakJav);
    RpE = new QPlainTextEdit(RpPanel);
    RpE->setObjectName("RpE");
    RpE->setMaximumHeight(60);
    auto* quantity = new QHBoxLayout;
    quantity->addWidget(Mennyiseg);
    quantity->addWidget(new QLabel(QString::fromUtf8("azaz:"), RpPanel));
    quantity->addWidget(MennyisegLatinul, 2);
    auto* dosageButtons = new QHBoxLayout;
    dosageButtons->addWidget(DsAd);
    dosageButtons->addWidget(DsTorol);
    dosageButtons->addStretch();
    auto* marks = new QHBoxLayout;
    marks->addWidget(Masolat);
    marks->addWidget(NemHelyett);
    marks->addStretch();
    drug->addRow(QString::fromUtf8("Készítmény:"), GyogyszerNev);
    drug->addRow(QString::fromUtf8("Mennyiség:"), quantity);
    drug->addRow(QString::fromUtf8("D.S.:"), RpDsList);
    drug->addRow(dosageButtons);
    drug->addRow(QString(), GyogyszerDs);
    drug->addRow(QString(), marks);
    drug->addRow(specialist);
    auto* extraLabel = new QLabel(QString::fromUtf8("Recepten megjelenítendő további  szöveg:"), RpPanel);
    extraLabel->setObjectName("RpEgyebTxt");
    extraLabel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);  // the text box follows at once
    drug->addRow(extraLabel);
    drug->addRow(RpE);

    // The BNO code browser, shown in the prescription panel's place.
    BnoPanel = new QWidget(this);
    BnoPanel->setObjectName("BnoPanel");
    BnoEuLst = new QListWidget(BnoPanel);
    BnoEuLst->setObjectName("BnoEuLst");
    BnoEuLst->setContextMenuPolicy(Qt::CustomContextMenu);
    MsgLabel = new QLabel(QString::fromUtf8("A rendelet szövege a jobb egérgomb lenyomásával megjeleníthető"),
                          BnoPanel);
    MsgLabel->setObjectName("MsgLabel");
    MsgLabel->setWordWrap(true);
    BnoTree = new QTreeWidget(BnoPanel);
    BnoTree->setObjectName("BnoTree");
    BnoTree->setHeaderHidden(true);
    BnoTree->setUniformRowHeights(true);
    BnoEdt = edit("BnoEdt", BnoPanel);
    BnoKeres = button("BnoKeres", "&Keres", BnoPanel);
    BnoNext = button("BnoNext", "Kö&vetkezőt", BnoPanel);
    BnoCollapse = button("BnoCollapse", "Fát összecsu&k", BnoPanel);
    auto* treeSearch = new QGridLayout;
    treeSearch->addWidget(new QLabel(QString::fromUtf8("Keresendő:"), BnoPanel), 0, 0);
    treeSearch->addWidget(BnoEdt, 0, 1);
    auto* treeButtons = new QHBoxLayout;
    treeButtons->addWidget(BnoKeres);
    treeButtons->addWidget(BnoNext);
    treeButtons->addWidget(BnoCollapse);
    treeButtons->addStretch();
    treeSearch->addLayout(treeButtons, 1, 1);
    // The code list filters as one types (letter case and accents folded); the list itself is unchanged.
    auto* filter = edit("BnoEuSzuro", BnoPanel);
    filter->setPlaceholderText(QString::fromUtf8("Szűrés a listában"));
    connect(filter, &QLineEdit::textChanged, this, [this](const QString& typed) {
        const QString wanted = folded(typed);
        for (int i = 0; i < BnoEuLst->count(); ++i)
            BnoEuLst->item(i)->setHidden(!folded(BnoEuLst->item(i)->text()).contains(wanted));
    });
    auto* bnoLayout = new QVBoxLayout(BnoPanel);
    bnoLayout->addWidget(filter);
    bnoLayout->addWidget(BnoEuLst, 1);
    bnoLayout->addWidget(MsgLabel);
    bnoLayout->addLayout(treeSearch);
    bnoLayout->addWidget(BnoTree, 2);
    BnoPanel->hide();

    // Permanent drugs, preview, buttons.
    GyChLst = new QListWidget(this);
    GyChLst->setObjectName("GyChLst");
    RpPreview = new QTextEdit(this);
    RpPreview->setObjectName("RpPreview");
    RpPreview->setReadOnly(true);
    RpSaveOnly = button("RpSaveOnly", "Csak ment", this);
    RpPrint = button("RpPrint", "Nyomtat és rögzít", this);
    RpPdf = button("RpPdf", "PDF", this);
    auto* right = new QVBoxLayout;
    right->addWidget(new QLabel(QString::fromUtf8("Állandó gyógyszerek:"), this));
    right->addWidget(GyChLst, 1);
    right->addWidget(RpPreview, 2);
    right->addWidget(KiszertipGrp);
    const auto radioGroup = [this](const char* name, const char* caption,
                                   std::initializer_list<const char*> items,
                                   std::vector<QRadioButton*>& radios, void (TRp::*click)(int)) {
        auto* group = new QGroupBox(QString::fromUtf8(caption), this);
        group->setObjectName(name);
        auto* column = new QVBoxLayout(group);
        for (const char* item : items) {
            auto* radio = new QRadioButton(QString::fromUtf8(item), group);
            radio->setObjectName(QString("%1%2").arg(name).arg(radios.size()));
            const int index = static_cast<int>(radios.size());
            connect(radio, &QRadioButton::clicked, this, [this, click, index] { (this->*click)(index); });
            column->addWidget(radio);
            radios.push_back(radio);
        }
        radios.front()->setChecked(true);
        return group;
    };
    RpFormat = radioGroup("RpFormat", "Recept formátum", {"Régi", "Új álló", "Új fekvő"}, m_formats,
                          &TRp::RpFormatClick);
    PrintModeGrp =
        radioGroup("PrintModeGrp", "Nyomtatás", {"Direkt", "Előkép"}, m_printModes, &TRp::PrintModeGrpClick);
    auto* printGroups = new QHBoxLayout;
    printGroups->addWidget(RpFormat);
    printGroups->addWidget(PrintModeGrp);
    right->addLayout(printGroups);
    // The six margins, hidden until F11 is pressed in NaploSzam.
    RpMarginPanel = new QGroupBox(QString::fromUtf8("Margók"), this);
    RpMarginPanel->setObjectName("RpMarginPanel");
    auto* margins = new QGridLayout(RpMarginPanel);
    const auto margin = [this, margins](const char* name, const char* caption, int row, int column) {
        auto* spin = new QSpinBox(RpMarginPanel);
        spin->setObjectName(name);
        // A shift above 1000 would read back as a negative one (1000 - n is how negatives are kept).
        spin->setRange(-99999, 1000);
        margins->addWidget(new QLabel(QString::fromUtf8(caption), RpMarginPanel), row, column * 2);
        margins->addWidget(spin, row, column * 2 + 1);
        return spin;
    };
    LeftAlloRegi = margin("LeftAlloRegi", "Régi álló Bal", 0, 0);
    TopAlloRegi = margin("TopAlloRegi", "Régi álló Felső", 1, 0);
    LeftAllo = margin("LeftAllo", "Új álló Bal", 2, 0);
    TopAllo = margin("TopAllo", "Új álló Felső", 3, 0);
    LeftFekvo = margin("LeftFekvo", "Új fekvő Bal", 4, 0);
    TopFekvo = margin("TopFekvo", "Új fekvő Felső", 5, 0);
    SaveNewMargins = button("SaveNewMargins", "Ment", RpMarginPanel);
    margins->addWidget(SaveNewMargins, 6, 1);
    RpMarginPanel->hide();
    showMargins();
    right->addWidget(RpMarginPanel);
    auto* actions = new QGridLayout;
    actions->addWidget(RpSaveOnly, 0, 0);
    actions->addWidget(RpPdf, 0, 1);
    actions->addWidget(RpPrint, 1, 0, 1, 2);
    right->addLayout(actions);

    auto* left = new QVBoxLayout;
    left->addWidget(patient);
    left->addWidget(JogcimGrp, 1);
    auto* middle = new QVBoxLayout;
    middle->addWidget(RpPanel, 1);
    middle->addWidget(BnoPanel, 1);
    // Three columns of about 250 points each: the whole width fits a 1366 × 768 screen at 150 %.
    // Where the screen is lower than the columns, the window scrolls up and down, never sideways.
    auto* columns = new QWidget;
    auto* layout = new QHBoxLayout(columns);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(left, 3);
    layout->addLayout(middle, 3);
    layout->addLayout(right, 2);
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(columns);
    m_scroll = scroll;
    fitScrollWidth();
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(scroll);

    // Every edit refreshes the preview; some do more.
    for (QLineEdit* line :
         {BetegNev, BetegCim1, BetegCim2, BetegENY, BetegEU, BetegTAJ, BetegBNO, VenyNo, FelirDat, EuRendEdt,
          MennyisegLatinul, GyogyszerNev, SzoAzon, NaploSzam, SzoJavDatum})
        connect(line, &QLineEdit::textChanged, this, &TRp::refreshPreview);
    connect(BetegSzulDat, &QLineEdit::textChanged, this, &TRp::BetegSzulDatChange);
    // A drug name longer than its field shows from its start, and whole in the tooltip.
    connect(GyogyszerNev, &QLineEdit::textChanged, this, [this](const QString& name) {
        GyogyszerNev->setToolTip(name);
        if (!GyogyszerNev->hasFocus()) GyogyszerNev->setCursorPosition(0);
    });
    connect(FelirDat, &QLineEdit::textChanged, this, &TRp::BetegSzulDatChange);
    connect(Mennyiseg, &QLineEdit::textChanged, this, &TRp::MennyisegChange);
    connect(GyogyszerDs, &QPlainTextEdit::textChanged, this, &TRp::refreshPreview);
    connect(RpE, &QPlainTextEdit::textChanged, this, &TRp::refreshPreview);
    connect(Masolat, &QCheckBox::toggled, this, &TRp::refreshPreview);
    connect(NemHelyett, &QCheckBox::toggled, this, &TRp::refreshPreview);
    connect(RpDsList, &QComboBox::currentTextChanged, this, &TRp::RpDsListChange);
    connect(DsAd, &QPushButton::clicked, this, &TRp::DsAdClick);
    connect(DsTorol, &QPushButton::clicked, this, &TRp::DsTorolClick);
    connect(GyChLst, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { GyChLstClick(GyChLst->row(item)); });
    connect(BnoKodok, &QPushButton::clicked, this, &TRp::BnoKodokClick);
    connect(BnoEuLst, &QListWidget::customContextMenuRequested, this, [this] { BnoEuLstRightClick(); });
    connect(RpSaveOnly, &QPushButton::clicked, this, &TRp::RpSaveOnlyClick);
    connect(RpPrint, &QPushButton::clicked, this, &TRp::RpPrintClick);
    connect(RpPdf, &QPushButton::clicked, this, &TRp::RpPdfClick);
    connect(RpSzakJav, &QPushButton::clicked, this, &TRp::RpSzakJavClick);
    connect(SaveNewMargins, &QPushButton::clicked, this, &TRp::SaveNewMarginsClick);
    NaploSzam->installEventFilter(this);
    connect(BnoKeres, &QPushButton::clicked, this, &TRp::BnoKeresClick);
    connect(BnoNext, &QPushButton::clicked, this, &TRp::BnoNextClick);
    connect(BnoCollapse, &QPushButton::clicked, this, &TRp::BnoCollapseClick);
    connect(BnoEdt, &QLineEdit::textChanged, this, [this] { BnoNext->setEnabled(false); });
    connect(BnoTree, &QTreeWidget::itemDoubleClicked, this, [this] { BnoTreeDblClick(); });
}

void TRp::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    FormShow();
    fitScrollWidth();
}

bool TRp::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == NaploSzam && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_F11) {
        RpMarginPanel->setVisible(!RpMarginPanel->isVisible());
        fitScrollWidth();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void TRp::FormShow()
{
    if (m_shown) return;
    m_shown = true;
    RunFiles& files = runFiles();
    if (!files.read) {
        files.read = true;
        files.tamttt = rovanel::readWholeFile(rovanel::dataFilePath(m_dataDirectory, "tamttt.dat"))
                           .value_or(std::string());
        files.szvhr = rovanel::readWholeFile(rovanel::dataFilePath(m_dataDirectory, "szvhr.dat"))
                          .value_or(std::string());
    }
}

void TRp::readPatientData()
{
    const rovanel::PatientData patient = rovanel::readPatientData(m_patientIni);
    BetegBNO->setText(fromCp1250(patient.bno));
    BetegCim1->setText(fromCp1250(patient.address1));
    BetegCim2->setText(fromCp1250(patient.address2));
    BetegENY->setText(fromCp1250(patient.eny));
    BetegEU->setText(fromCp1250(patient.eu));
    m_qualifications = rovanel::qualificationCodes(patient.qualification);
    NaploSzam->setText(fromCp1250(patient.logNumber));
    VenyNo->setText(fromCp1250(patient.serialPrefix));
    BetegNev->setText(fromCp1250(patient.name));
    BetegSzulDat->setText(fromCp1250(patient.birthDate));
    BetegTAJ->setText(fromCp1250(patient.taj));
    GyChLst->clear();
    for (const std::string& record : rovanel::splitDrugRecords(patient.permanentDrugs))
        GyChLst->addItem(fromCp1250(record));
}

void TRp::setUp()
{
    FelirDat->setText(QString::fromStdString(m_today));
    GyogyszerDs->setPlainText("D.S.:");
    BnoKodok->setText(QString::fromUtf8(kCodeTable));
    showBnoBrowser(false);
    readPatientData();
    const QString typed = RpDsList->currentText();
    RpDsList->blockSignals(true);
    RpDsList->clear();
    for (const std::string& item : rovanel::prepareDosageList(m_dataDirectory, m_dosageList))
        RpDsList->addItem(fromCp1250(item));
    RpDsList->model()->sort(0);
    RpDsList->setCurrentIndex(-1);
    RpDsList->setEditText(typed);
    RpDsList->blockSignals(false);
    refreshPreview();
}

bool TRp::openForPackage(std::int32_t record)
{
    std::optional<rovanel::PackageData> package;
    if (record >= 0) package = rovanel::packageData(m_state.tables, m_dataDirectory, record);
    if (!package) {
        showMessage(this, message("A kurzor nem kiszerelést tartalmazó sorban van!"));
        return false;
    }
    show();
    raise();
    m_package = *package;
    m_prescription.keys = m_package.keys;
    m_prescription.item.key = m_package.ttt;
    m_prescription.item.productCode = m_package.productCode;
    GyogyszerNev->setText(fromCp1250(m_package.name));
    setUp();
    rovanel::TitleCaptions relabelled = rovanel::defaultTitleCaptions();
    rovanel::relabelLayoutA(relabelled, std::string_view(m_package.titleFlags));
    relabel(relabelled);
    return true;
}

void TRp::addItem(const std::string& name, const std::string& text, const std::string& productCode)
{
    show();
    raise();
    m_package = rovanel::PackageData{};
    m_prescription.keys = {};
    m_prescription.item.key.clear();
    m_prescription.item.productCode = productCode;
    GyogyszerNev->setText(fromCp1250(name));
    setUp();
    GyogyszerDs->setPlainText(fromCp1250("D.S.:\n" + text));
    relabel(rovanel::defaultTitleCaptions());
}

void TRp::showPermanentDrugs(bool setPermanentListMode)
{
    if (setPermanentListMode) m_listMode = 3;
    show();
    raise();
    setUp();
}

void TRp::GyChLstClick(int row)
{
    if (row < 0 || row >= GyChLst->count()) return;
    Masolat->setChecked(false);
    NemHelyett->setChecked(false);
    m_packageForms[0]->setChecked(true);
    setTitle(0);
    GyogyszerDs->setPlainText("D.S.:");
    BnoKodok->setText(QString::fromUtf8(kCodeTable));
    showBnoBrowser(false);
    const rovanel::PrescriptionItem item = rovanel::decodeDrugRecord(toCp1250(GyChLst->item(row)->text()));
    m_package = rovanel::PackageData{};  // a permanent drug has no supply length
    m_prescription.item.key = item.key;
    m_prescription.item.productCode = item.productCode;
    GyogyszerNev->setText(fromCp1250(item.name));
    m_packageForms[static_cast<std::size_t>(item.packageForm)]->setChecked(true);
    Mennyiseg->setText(fromCp1250(item.quantity));
    MennyisegLatinul->setText(fromCp1250(item.quantityLatin));
    if (!item.dosage.empty()) GyogyszerDs->setPlainText(fromCp1250(item.dosage));
    NemHelyett->setChecked(!item.substitutable);
    setWindowTitle(fromCp1250(item.key));
    const rovanel::TamtttEntry entry = rovanel::lookupTamttt(runFiles().tamttt, item.key);
    m_prescription.keys = entry.keys;
    rovanel::TitleCaptions relabelled = captions();
    rovanel::relabelLayoutB(relabelled, std::string_view(entry.flags));
    relabel(relabelled);
    refreshPreview();
}

void TRp::BetegSzulDatChange()
{
    BetegKora->setText(
        fromCp1250(rovanel::ageText(toCp1250(FelirDat->text()), toCp1250(BetegSzulDat->text()))));
    refreshPreview();
}

void TRp::MennyisegChange()
{
    const rovanel::QuantityChange change =
        rovanel::quantityChanged(toCp1250(Mennyiseg->text()), m_package.daysPerPackage);
    if (change.error) {
        showMessage(this, *change.error);
        return;
    }
    if (change.latin) MennyisegLatinul->setText(fromCp1250(*change.latin));
    // Lines are added, never replaced: each change that lasts more than a month adds one.
    if (change.monthsLine) RpE->appendPlainText(fromCp1250(*change.monthsLine));
    refreshPreview();
}

rovanel::TitleCaptions TRp::captions() const
{
    rovanel::TitleCaptions result;
    for (std::size_t i = 0; i < m_titles.size(); ++i) result[i] = toCp1250(m_titles[i]->text());
    return result;
}

void TRp::relabel(const rovanel::TitleCaptions& relabelled)
{
    for (std::size_t i = 0; i < m_titles.size(); ++i) m_titles[i]->setText(fromCp1250(relabelled[i]));
}

int TRp::chosenTitle() const
{
    for (std::size_t i = 0; i < m_titles.size(); ++i)
        if (m_titles[i]->isChecked()) return static_cast<int>(i);
    return 0;
}

void TRp::setTitle(int index) { m_titles[static_cast<std::size_t>(index)]->setChecked(true); }

void TRp::JogcimGrpClick(int index)
{
    setTitle(index);
    const rovanel::TitleChoice choice = rovanel::titleChosen(
        captions(), index, m_prescription.source, BnoKodok->text() == QString::fromUtf8(kCodeTable));
    if (choice.message) {
        showMessage(this, *choice.message);
    } else if (choice.openBnoCodes) {
        BnoKodokClick();
    }
    refreshPreview();
}

void TRp::showBnoBrowser(bool shown)
{
    BnoPanel->setVisible(shown);
    RpPanel->setVisible(!shown);
    fitScrollWidth();
}

void TRp::fitScrollWidth()
{
    m_scroll->setMinimumWidth(m_scroll->widget()->minimumSizeHint().width() +
                              m_scroll->verticalScrollBar()->sizeHint().width());
}

void TRp::loadBnoTree()
{
    if (!m_bnoNodes) m_bnoNodes = rovanel::loadBnoTree(m_dataDirectory);
    if (!m_treeFilled && m_bnoNodes) {
        rovanel::forms::fillBnoTree(BnoTree, *m_bnoNodes);
        m_treeFilled = true;
    }
}

void TRp::BnoKodokClick()
{
    if (BnoKodok->text() == QString::fromUtf8(kCodeTable)) {
        const rovanel::BnoCodeList list = rovanel::bnoCodeList(m_dataDirectory, m_prescription.keys,
                                                               rovanel::isFeePayingTitle(chosenTitle()));
        if (list.message) {
            showMessage(this, *list.message);
            return;
        }
        BnoEuLst->clear();
        findChild<QLineEdit*>("BnoEuSzuro")->clear();
        for (const std::string& line : list.lines) BnoEuLst->addItem(fromCp1250(line));
        loadBnoTree();
        showBnoBrowser(true);
        BnoKodok->setText(QString::fromUtf8(kInsert));
        return;
    }
    const int row = rovanel::forms::selectedRow(BnoEuLst);
    if (row < 0) {
        showMessage(this, message("Jelölje ki a BNO kódot a listából!"));
        return;
    }
    const std::string code(rovanel::codeOfListLine(toCp1250(BnoEuLst->item(row)->text())));
    BetegBNO->setText(fromCp1250(code));
    BnoKodok->setText(QString::fromUtf8(kCodeTable));
    if (code.size() != 5) {
        // The tree stays open for picking a full code.
        showMessage(this, message("Rövid BNO kód"));
        loadBnoTree();
        return;
    }
    showBnoBrowser(false);
    if (rovanel::restrictedByQualification(runFiles().szvhr, m_package.designation)) {
        const rovanel::QualificationCheck check =
            rovanel::checkQualification(runFiles().szvhr, m_qualifications, m_package.designation,
                                        toCp1250(SzoAzon->text()), m_package.specialistFlag);
        if (check.message) showMessage(this, *check.message);
    }
    refreshPreview();
}

void TRp::BnoEuLstRightClick()
{
    const int row = rovanel::forms::selectedRow(BnoEuLst);
    if (row < 0) {
        showMessage(this, message("Jelöljön ki egy sort!"));
        return;
    }
    const std::string key = rovanel::keyOfListLine(toCp1250(BnoEuLst->item(row)->text()));
    const std::string rend =
        rovanel::readWholeFile(rovanel::dataFilePath(m_dataDirectory, "rend.dat")).value_or(std::string());
    const rovanel::RegulationPoint point = rovanel::regulationPoint(rend, key);
    if (key.empty() || point.text.empty()) {
        showMessage(this, rovanel::Message{rovanel::utf8ToCp1250("Hibás kód:") + key, "",
                                           rovanel::MessageIcon::Warning});
        return;
    }
    showMessage(this, rovanel::Message{point.text, key, rovanel::MessageIcon::Information});
}

rovanel::Prescription TRp::prescription() const
{
    rovanel::Prescription result = m_prescription;
    result.patient = {toCp1250(BetegNev->text()),  toCp1250(BetegCim1->text()),
                      toCp1250(BetegCim2->text()), toCp1250(BetegSzulDat->text()),
                      toCp1250(BetegENY->text()),  toCp1250(BetegEU->text()),
                      toCp1250(BetegTAJ->text())};
    result.prescriber.serialNumber = toCp1250(VenyNo->text());
    result.prescriber.qualifications = m_qualifications;
    result.prescriber.specialistId = toCp1250(SzoAzon->text());
    result.prescriber.logNumber = toCp1250(NaploSzam->text());
    result.prescriber.recommendationDate = toCp1250(SzoJavDatum->text());
    result.title = chosenTitle();
    result.titleCaptions = captions();
    result.bno = toCp1250(BetegBNO->text());
    result.date = toCp1250(FelirDat->text());
    result.regulation = toCp1250(EuRendEdt->text());
    result.copy = Masolat->isChecked();
    result.extraText = toCp1250(RpE->toPlainText());
    result.item.name = toCp1250(GyogyszerNev->text());
    for (std::size_t i = 0; i < m_packageForms.size(); ++i)
        if (m_packageForms[i]->isChecked()) result.item.packageForm = static_cast<int>(i);
    result.item.quantity = toCp1250(Mennyiseg->text());
    result.item.quantityLatin = toCp1250(MennyisegLatinul->text());
    result.item.dosage = toCp1250(GyogyszerDs->toPlainText());
    result.item.substitutable = !NemHelyett->isChecked();
    return result;
}

void TRp::refreshPreview()
{
    if (!RpPreview) return;
    RpPreview->setPlainText(fromCp1250(rovanel::previewText(prescription())));
}

bool TRp::checkAndSave()
{
    const rovanel::Prescription current = prescription();
    if (!m_bnoNodes) m_bnoNodes = rovanel::loadBnoTree(m_dataDirectory);
    const rovanel::RecordCheck check = rovanel::checkPrescription(current, m_bnoNodes, m_dataDirectory);
    if (!check.passed) {
        if (check.message) showMessage(this, *check.message);
        if (check.focus == rovanel::RecordCheck::Field::Bno) BetegBNO->setFocus();
        if (check.focus == rovanel::RecordCheck::Field::Quantity) Mennyiseg->setFocus();
        showMessage(this, rovanel::invalidDataMessage());
        return false;
    }
    const rovanel::SaveResult saved = rovanel::savePrescription(m_patientIni, current);
    if (!saved.saved) {
        if (saved.message) showMessage(this, *saved.message);
        return false;
    }
    return true;
}

void TRp::RpSaveOnlyClick()
{
    if (checkAndSave()) showMessage(this, message("Recept elmentve.", rovanel::MessageIcon::Information));
}

void TRp::setRegistry(rovanel::RegistryStore* registry)
{
    m_registry = registry;
    if (!registry) return;
    const rovanel::RxPrintSettingsRead read = rovanel::readRxPrintSettings(*registry);
    m_printSettings = read.settings;  // a setting that cannot be read keeps its default
    const auto format = static_cast<std::size_t>(m_printSettings.format);
    if (format < m_formats.size()) m_formats[format]->setChecked(true);
    const auto mode = static_cast<std::size_t>(m_printSettings.printMode);
    if (mode < m_printModes.size()) m_printModes[mode]->setChecked(true);
    showMargins();
}

void TRp::showMargins()
{
    const rovanel::RxMargins& margins = m_printSettings.margins;
    LeftAlloRegi->setValue(margins.leftOld);
    TopAlloRegi->setValue(margins.topOld);
    LeftAllo->setValue(margins.leftUpright);
    TopAllo->setValue(margins.topUpright);
    LeftFekvo->setValue(margins.leftSideways);
    TopFekvo->setValue(margins.topSideways);
}

void TRp::SaveNewMarginsClick()
{
    m_printSettings.margins = {LeftAlloRegi->value(), TopAlloRegi->value(), LeftAllo->value(),
                               TopAllo->value(),      LeftFekvo->value(),   TopFekvo->value()};
    if (!m_registry) return;
    if (auto refusal = rovanel::writeRxMargins(*m_registry, m_printSettings.margins))
        showMessage(this, *refusal);
}

void TRp::setRecommendationOpener(RecommendationOpener opener)
{
    m_openRecommendation = std::move(opener);
    RpSzakJav->setEnabled(static_cast<bool>(m_openRecommendation));
}

rovanel::RecommendationHandover TRp::recommendationHandover() const
{
    rovanel::RecommendationHandover handover;
    handover.bno = toCp1250(BetegBNO->text());
    handover.titleText = m_package.designation;
    handover.atcCode = m_prescription.item.productCode.substr(0, rovanel::kAtcLevelLengths.back());
    handover.patientName = toCp1250(BetegNev->text());
    handover.address1 = toCp1250(BetegCim1->text());
    handover.address2 = toCp1250(BetegCim2->text());
    handover.birthDate = toCp1250(BetegSzulDat->text());
    handover.taj = toCp1250(BetegTAJ->text());
    return handover;
}

void TRp::RpSzakJavClick()
{
    if (m_openRecommendation) m_openRecommendation(recommendationHandover());
}

void TRp::RpFormatClick(int index)
{
    m_printSettings.format = static_cast<rovanel::RxFormat>(index);
    setWindowTitle(fromCp1250(rovanel::rxFormatCaption(m_printSettings.format)));
    if (!m_registry) return;
    if (auto refusal = rovanel::writeRxFormat(*m_registry, m_printSettings.format))
        showMessage(this, *refusal);
}

void TRp::PrintModeGrpClick(int index)
{
    m_printSettings.printMode = index;
    if (!m_registry) return;
    if (auto refusal = rovanel::writeRxPrintMode(*m_registry, index)) showMessage(this, *refusal);
}

void TRp::RpPrintClick()
{
    if (!checkAndSave()) return;
    const rovanel::PrintLayout layout = rovanel::printedPrescription(
        m_printSettings.format, rovanel::rxPrintInput(prescription()), m_printSettings.margins);
    if (m_printSettings.printMode == 1)
        rovanel::forms::previewLayout(this, layout);
    else
        rovanel::forms::printLayoutNow(this, layout);
}

void TRp::RpPdfClick()
{
    if (!checkAndSave()) return;
    const rovanel::PrintLayout layout = rovanel::printedPrescription(
        m_printSettings.format, rovanel::rxPrintInput(prescription()), m_printSettings.margins);
    rovanel::forms::saveLayoutPdfAsked(this, layout, QStringLiteral("recept.pdf"));
}

void TRp::RpDsListChange()
{
    GyogyszerDs->setPlainText(fromCp1250(rovanel::dosageText(toCp1250(RpDsList->currentText()))));
}

void TRp::DsAdClick()
{
    const QString text = RpDsList->currentText();
    if (text.isEmpty()) return;
    RpDsList->addItem(text);
    RpDsList->model()->sort(0);
    std::vector<std::string> items;
    for (int i = 0; i < RpDsList->count(); ++i) items.push_back(toCp1250(RpDsList->itemText(i)));
    if (auto refusal = rovanel::saveDosageList(m_dosageList, items)) showMessage(this, *refusal);
}

void TRp::DsTorolClick()
{
    const int index = RpDsList->findText(RpDsList->currentText());
    if (index < 0) return;
    RpDsList->removeItem(index);
    std::vector<std::string> items;
    for (int i = 0; i < RpDsList->count(); ++i) items.push_back(toCp1250(RpDsList->itemText(i)));
    if (auto refusal = rovanel::saveDosageList(m_dosageList, items)) showMessage(this, *refusal);
}

void TRp::BnoKeresClick()
{
    loadBnoTree();
    BnoTree->collapseAll();
    BnoNext->setEnabled(true);
    if (!m_bnoNodes) return;
    // The prescription window's search always ignores letter case.
    if (const auto hit = rovanel::bnoSearchFirst(*m_bnoNodes, toCp1250(BnoEdt->text()), true,
                                                 rovanel::sharedBnoSearchPosition()))
        rovanel::forms::selectBnoNode(BnoTree, *hit);
}

void TRp::BnoNextClick()
{
    if (!m_bnoNodes) return;
    if (const auto hit = rovanel::bnoSearchNext(*m_bnoNodes, toCp1250(BnoEdt->text()), true,
                                                rovanel::sharedBnoSearchPosition()))
        rovanel::forms::selectBnoNode(BnoTree, *hit);
}

void TRp::BnoCollapseClick() { BnoTree->collapseAll(); }

void TRp::BnoTreeDblClick()
{
    const int node = rovanel::forms::selectedBnoNode(BnoTree);
    if (!m_bnoNodes || node < 0 || static_cast<std::size_t>(node) >= m_bnoNodes->size()) return;
    const std::string& text = (*m_bnoNodes)[static_cast<std::size_t>(node)].text;
    const std::string code = text.substr(0, text.find(' '));
    // Only a full code is taken; chapters and groups of codes are opened, not picked.
    if (code.size() == 5) BetegBNO->setText(fromCp1250(code));
}
