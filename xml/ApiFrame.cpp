#include "xml/ApiFrame.h"

#include <algorithm>
#include <cstdio>
#include <new>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>

#include "xml/ZQXMLException.h"
#include "xml/ZQXMLText.h"
#include "zqxml/status.h"

namespace {

constexpr int kError = 2;

int addError(ZQStatusList* status, int number, const char* text) {
  return std::max(kError, ZQAddErrorMessage(status, kError, number, text));
}

}  // namespace

int reportCurrentException(ZQStatusList* status, int xmlNumber) {
  try {
    throw;
  } catch (const ZQXMLException& exception) {
    return addError(status, exception.GetErrorNumber(), exception.GetErrorMsg());
  } catch (const xercesc::XMLException& exception) {
    return addError(status, xmlNumber, ZQXMLShortText(exception.getMessage()).get());
  } catch (const xercesc::OutOfMemoryException&) {
    return addError(status, ZQ_MESSAGE_OUT_OF_MEMORY, "");
  } catch (const std::bad_alloc&) {
    return addError(status, ZQ_MESSAGE_OUT_OF_MEMORY, "");
  } catch (...) {
    return addError(status, xmlNumber, "");
  }
}

int reportDOMException(ZQStatusList* status, const xercesc::DOMException& exception) {
  const ZQXMLShortText message(exception.getMessage());
  // Room for all that there is: the cut belongs to the status list.
  char text[sizeof(ZQXMLShortText) + 64];
  snprintf(text, sizeof text, "DOMCode: %s; %s", GetDOMExceptionErrorText(exception.code),
           message.get());
  return addError(status, ZQ_MESSAGE_XML_PARSER, text);
}
