#include "masklabel.h"

#include "accessiblefactory.h"

MaskLabel::MaskLabel(QWidget *window)
    : QLabel(window)
{
    AccessibleFactory::askForTypesFirst();
}

MaskLabel::~MaskLabel() = default;
