// The cream panel "Panel1" that is the whole client area of the update notice and the settings window.
#pragma once

#include <QPalette>
#include <QVBoxLayout>
#include <QWidget>

inline QWidget* fillWithCreamPanel(QWidget* window)
{
    auto* panel = new QWidget(window);
    panel->setObjectName("Panel1");
    panel->setAutoFillBackground(true);
    QPalette cream = panel->palette();
    cream.setColor(QPalette::Window, QColor(0xFF, 0xFB, 0xF0));
    panel->setPalette(cream);
    auto* layout = new QVBoxLayout(window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(panel);
    return panel;
}
