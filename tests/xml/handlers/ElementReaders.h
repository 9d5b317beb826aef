// The handlers of values, conditions, assignments and automation, each with its record.
#ifndef ZQXML_TESTS_XML_HANDLERS_ELEMENTREADERS_H
#define ZQXML_TESTS_XML_HANDLERS_ELEMENTREADERS_H

#include "xml/handlers/HandlerReader.h"
#include "xml/handlers/ZQXMLActionDDEHandler.h"
#include "xml/handlers/ZQXMLActionOLEHandler.h"
#include "xml/handlers/ZQXMLActionOLEMethodListHandler.h"
#include "xml/handlers/ZQXMLActionOLEMethodPListHandler.h"
#include "xml/handlers/ZQXMLActionOLEValueHandler.h"
#include "xml/handlers/ZQXMLAssignArithHandler.h"
#include "xml/handlers/ZQXMLAssignFieldHandler.h"
#include "xml/handlers/ZQXMLAssignFilterAPIHandler.h"
#include "xml/handlers/ZQXMLAssignFunctionHandler.h"
#include "xml/handlers/ZQXMLAssignSQLHandler.h"
#include "xml/handlers/ZQXMLFieldAssignHandler.h"
#include "xml/handlers/ZQXMLFieldAssignListHandler.h"
#include "xml/handlers/ZQXMLFieldAssignValueHandler.h"
#include "xml/handlers/ZQXMLQualArithHandler.h"
#include "xml/handlers/ZQXMLQualHandler.h"
#include "xml/handlers/ZQXMLQualQueryValueHandler.h"
#include "xml/handlers/ZQXMLQualRelOpHandler.h"
#include "xml/handlers/ZQXMLQualValueArithHandler.h"
#include "xml/handlers/ZQXMLValueHandler.h"
#include "xml/handlers/ZQXMLValueListHandler.h"

// There is no public function for a query alone.
inline void freeQueryValue(ZQQueryValueStruct* query, ZQBoolean) {
  FreeZQQualifierStruct(query->queryQualification, 1);
}

using ValueReader = HandlerReader<ZQXMLValueHandler, ZQValueStruct, FreeZQValueStruct>;
using ValueListReader = HandlerReader<ZQXMLValueListHandler, ZQValueList, FreeZQValueList>;
using COMValueReader =
    HandlerReader<ZQXMLActionOLEValueHandler, ZQCOMValueStruct, FreeZQCOMValueStruct>;

using QualReader = HandlerReader<ZQXMLQualHandler, ZQQualifierStruct, FreeZQQualifierStruct>;
using RelOpReader = HandlerReader<ZQXMLQualRelOpHandler, ZQRelOpStruct, FreeZQRelOpStruct>;
using ArithReader = HandlerReader<ZQXMLQualArithHandler, ZQArithOpStruct, FreeZQArithOpStruct>;
using OperandReader = HandlerReader<ZQXMLQualValueArithHandler, ZQFieldValueOrArithStruct,
                                    FreeZQFieldValueOrArithStruct>;
using QueryReader = HandlerReader<ZQXMLQualQueryValueHandler, ZQQueryValueStruct, freeQueryValue>;

using FieldAssignListReader =
    HandlerReader<ZQXMLFieldAssignListHandler, ZQFieldAssignList, FreeZQFieldAssignList>;
using FieldAssignReader =
    HandlerReader<ZQXMLFieldAssignHandler, ZQFieldAssignStruct, FreeZQFieldAssignStruct>;
using AssignReader =
    HandlerReader<ZQXMLFieldAssignValueHandler, ZQAssignStruct, FreeZQAssignStruct>;
using AssignFieldReader =
    HandlerReader<ZQXMLAssignFieldHandler, ZQAssignFieldStruct, FreeZQAssignFieldStruct>;
using AssignArithReader =
    HandlerReader<ZQXMLAssignArithHandler, ZQArithOpAssignStruct, FreeZQArithOpAssignStruct>;
using FunctionReader =
    HandlerReader<ZQXMLAssignFunctionHandler, ZQFunctionAssignStruct, FreeZQFunctionAssignStruct>;
using DDEReader = HandlerReader<ZQXMLActionDDEHandler, ZQDDEStruct, FreeZQDDEStruct>;
using AssignSQLReader =
    HandlerReader<ZQXMLAssignSQLHandler, ZQAssignSQLStruct, FreeZQAssignSQLStruct>;
using FilterApiReader = HandlerReader<ZQXMLAssignFilterAPIHandler, ZQAssignFilterApiStruct,
                                      FreeZQAssignFilterApiStruct>;

using AutomationReader =
    HandlerReader<ZQXMLActionOLEHandler, ZQAutomationStruct, FreeZQAutomationStruct>;
using MethodListReader =
    HandlerReader<ZQXMLActionOLEMethodListHandler, ZQCOMMethodList, FreeZQCOMMethodList>;
using ParameterListReader =
    HandlerReader<ZQXMLActionOLEMethodPListHandler, ZQCOMMethodParmList, FreeZQCOMMethodParmList>;

#endif
