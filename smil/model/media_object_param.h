#pragma once

#include "platform/export.h"

#include <QString>

class QDataStream;

/// The kind of value of a `param`: its `valuetype` attribute.
/// @ingroup presentation
enum MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE : int {
    MMS_COMP_SMIL_PARAM_DATA = 0,   ///< "data"
    MMS_COMP_SMIL_PARAM_REF = 1,    ///< "ref"
    MMS_COMP_SMIL_PARAM_OBJECT = 2, ///< "object"
    MMS_COMP_SMIL_PARAM_OTHER = 3,  ///< any other text, or none
};

/// One `param` child of a media object.
class LUM_EXPORT MMS_COMP_SMILMediaObjectParam {
public:
    /// All texts empty, value type 0.
    MMS_COMP_SMILMediaObjectParam();
    /// A param of these values.
    MMS_COMP_SMILMediaObjectParam(const QString& name, const QString& value,
                                  MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                                  const QString& refValueType);

    /// The name.
    QString getName() const { return name_; }
    /// The value as text.
    QString getValue() const { return value_; }
    /// The kind of value.
    MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE getValueType() const { return valueType_; }
    /// The MIME type of a referenced value: the `type` attribute.
    QString getRefValueType() const { return refValueType_; }

    /// Sets the name.
    void setName(const QString& name) { name_ = name; }
    /// Sets the value.
    void setValue(const QString& value) { value_ = value; }
    /// Sets the kind of value.
    void setValueType(MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE type) { valueType_ = type; }
    /// Sets the MIME type of a referenced value.
    void setRefValueType(const QString& type) { refValueType_ = type; }
    /// Sets all four.
    void setAll(const QString& name, const QString& value, MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                const QString& refValueType);

    /// Reads the record that writeToStream() writes: name, value, value type, ref value type. Always true;
    /// when the record ends early, the remaining values are empty: check the stream's status.
    bool readFromStream(QDataStream& stream);
    /// Always true.
    bool writeToStream(QDataStream& stream) const;

private:
    QString name_ = QStringLiteral("");
    QString value_ = QStringLiteral("");
    MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType_ = MMS_COMP_SMIL_PARAM_DATA;
    QString refValueType_ = QStringLiteral("");
};
