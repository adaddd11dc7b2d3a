#include "desktop/elements/ValueText.hpp"

#include "desktop/QtText.hpp"

#include <QCoreApplication>
#include <QLocale>

namespace desktop {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(desktop::ValueText)
};

QString singleText(const model::PropertyView& value) {
    switch (value.primitive) {
        case model::Primitive::Integer:
            return QString::number(value.integer);
        case model::Primitive::Real:
            // The shortest text that reads back, with a point in every language: it may be copied into an update.
            return QString::number(value.real, 'g', QLocale::FloatingPointShortest);
        case model::Primitive::Boolean:
            return value.boolean ? QStringLiteral("true") : QStringLiteral("false");
        case model::Primitive::Logical:
            return value.integer == 2   ? QStringLiteral("true")
                   : value.integer == 1 ? QStringLiteral("unknown")
                                        : QStringLiteral("false");
        case model::Primitive::String:
        case model::Primitive::Other:
            break;
    }
    return toQString(value.string);
}

}  // namespace

QString valueText(const model::PropertyView& property) {
    switch (property.kind) {
        case model::PropertyKind::Single:
            return singleText(property);
        case model::PropertyKind::List:
            return Texts::tr("(list of values)");
        case model::PropertyKind::Bounded:
            return Texts::tr("(bounded value)");
        case model::PropertyKind::Enumerated:
            return Texts::tr("(enumerated value)");
        case model::PropertyKind::Table:
            return Texts::tr("(table of values)");
        case model::PropertyKind::Reference:
            return Texts::tr("(reference)");
    }
    return {};
}

QString valueText(const model::Property& property) {
    const model::PropertyValue& value = property.value;
    return valueText(model::PropertyView{property.set, property.name, property.kind, property.inherited, value.type,
                                         value.primitive, value.integer, value.real, value.boolean, value.string});
}

QString valueText(const model::ClassificationReference& reference) {
    const QString code = toQString(reference.itemReference.value_or(u""));
    const QString name = toQString(reference.name.value_or(u""));
    return QString(code + u' ' + name).trimmed();
}

}  // namespace desktop
