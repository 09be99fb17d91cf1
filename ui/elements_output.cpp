#include "ui/elements_output.h"

#include <QVBoxLayout>

#include "ui/my_list_view.h"

namespace orvane {

ElementsOutput::ElementsOutput(QWidget* parent) : QWidget(parent) {
    setObjectName("ElementsOutput");
    setAutoFillBackground(true);
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    setPalette(white);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    list_ = new MyListView(this);
    layout->addWidget(list_);
}

}  // namespace orvane
