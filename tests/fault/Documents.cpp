#include "fault/Documents.h"

#include <fstream>
#include <sstream>

namespace fault {

namespace {

std::string valueOf(const std::string& content) {
  return "<value>" + content + "</value>";
}

const std::string kText = valueOf("<characterValue>text</characterValue>");

const std::string kValues =
    "<valueList>" + kText + valueOf("<byteList type=\"JPEG\"><bytes>QUI=</bytes></byteList>") +
    valueOf(
        "<attachmentValue originalSize=\"2\" compressedSize=\"2\"><attachmentName>n"
        "</attachmentName><attachmentData>QUI=</attachmentData></attachmentValue>") +
    valueOf("<currency><currencyValue>1</currencyValue><code>EUR</code></currency>") +
    valueOf("<coordinateList><coordinate><X>1</X></coordinate></coordinateList>") + "</valueList>";

const std::string kCondition =
    "<or><left><relationalOperation><operation>in</operation><left><queryValue><formName>F"
    "</formName><queryQualification><and><left><fieldID>1</fieldID></left><right><not><fieldID>2"
    "</fieldID></not></right></and></queryQualification></queryValue></left><right>" +
    kValues +
    "</right></relationalOperation></left><right><relationalOperation><operation>add</operation>"
    "<left><arithmeticOperation><operation>add</operation><left>" +
    kText +
    "</left><right><statusHistoryValue><statusInfo>user</statusInfo></statusHistoryValue></right>"
    "</arithmeticOperation></left></relationalOperation></right></or>";

std::string item(const std::string& source) {
  return "<setField><fieldID>8</fieldID><fieldValue>" + source + "</fieldValue></setField>";
}

const std::string kAssignments =
    "<setFieldList>" + item(kText) +
    item(
        "<field><serverName>s</serverName><qualification><fieldID>3</fieldID></qualification>"
        "<fieldID>1</fieldID></field>") +
    item("<process><command>c</command></process>") +
    item("<arithmetic><left>" + kText + "</left><operation>add</operation><right>" + kText +
         "</right></arithmetic>") +
    item("<function><functionType>min</functionType><functionParameterList><functionParameter>" +
         kText + "</functionParameter><functionParameter/></functionParameterList></function>") +
    item("<dde><serviceName>s</serviceName><topic>t</topic><item>i</item></dde>") +
    item("<sql><sqlCommand>q</sqlCommand></sql>") +
    item("<filterAPI><inputValueList><inputValue>" + kText +
         "</inputValue></inputValueList></filterAPI>") +
    "</setFieldList>";

// What all objects begin with.
const std::string kHead =
    "<owner>o</owner><lastModifiedBy>l</lastModifiedBy><modifiedDate>2024-03-01T09:15:00Z"
    "</modifiedDate><helpText>h &amp; i</helpText><changeHistory><changeEntry "
    "modifiedDate=\"2024-01-10T09:30:00Z\" userName=\"u\"><entry>e</entry></changeEntry>"
    "</changeHistory>";
const std::string kProperties =
    "<objectProperties><property><value><integerValue>7</integerValue></value>"
    "<tag>60018</tag></property></objectProperties>";
const std::string kForms =
    "<workflowConnect><formNameList><formName>F</formName><formName>G</formName></formNameList>"
    "</workflowConnect>";

std::string action(const std::string& content) {
  return "<action>" + content + "</action>";
}

const std::string kActions =
    action(
        "<message><messageType>note</messageType><messageNumber>1</messageNumber><messageText>t"
        "</messageText></message>") +
    action("<logToFile><fileName>f</fileName></logToFile>") +
    action("<runProcess><command>c</command></runProcess>") +
    action("<gotoGuide><label>L</label></gotoGuide>");

}  // namespace

std::string documentOfAllKinds() {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root xmlns=\"urn:x\">"
         "<form><formName>A name of \xC3\xA9 that is quite long &amp; in pieces</formName></form>"
         "<filter><filterName>B</filterName></filter>"
         "<activeLink><activeLinkName>C</activeLinkName></activeLink>"
         "<container a='1'><containerName>D&#xF8E1;</containerName>"
         "<containerType>application</containerType></container>"
         "<escalation><escalationName>E</escalationName></escalation></root>";
}

std::string documentOfAFilter() {
  return "<root><filter zqDocVersion=\"3\"><filterName>F</filterName>" + kHead +
         "<executionOrder>200</executionOrder>" + kForms +
         "<executeOn>modify submit</executeOn><enabled>true</enabled><runIfQualification>" +
         kCondition + "</runIfQualification><ifActions>" + action(kAssignments) +
         "</ifActions><elseActions>" + kActions + "</elseActions>" + kProperties +
         "</filter></root>";
}

std::string documentOfAnEscalation() {
  return "<root><escalation zqDocVersion=\"3\"><escalationName>E</escalationName>" + kHead +
         "<escalationTime><time><minute>5</minute></time></escalationTime>" + kForms +
         "<enabled>true</enabled><runIfQualification>" + kCondition +
         "</runIfQualification><ifActions>" + kActions + "</ifActions>" + kProperties +
         "</escalation></root>";
}

std::string exampleDocument(const std::string& name) {
  std::ostringstream text;
  text << std::ifstream(std::string(ZQXML_EXAMPLES_DIR) + "/" + name, std::ios::binary).rdbuf();
  return text.str();
}

}  // namespace fault
