unit Lettersru;

{ Письма покупателям из России. Текст 'как есть' проверен бухгалтерией. }

interface

function GreetingRu(const Name: string): string;
function OrderLetterRu(Kilos: Double; Paid: Boolean): string;

implementation

uses
  SysUtils;

function GreetingRu(const Name: string): string;
begin
  if Name = '' then
    Result := 'Здравствуйте!'
  else
    Result := 'Уважаемый покупатель ' + Name + '!';
end;

function OrderLetterRu(Kilos: Double; Paid: Boolean): string;
begin
  Result := 'Ваш заказ принят и будет отправлен завтра утром.'#13#10 +
    'Вес: ' + FormatFloat('0.0', Kilos) + ' кг';
  if not Paid then
    Result := Result + #13#10'Пожалуйста, оплатите счёт в течение семи дней.';
  // Подпись 'Сад и огород' ставит программа печати
end;

end.
