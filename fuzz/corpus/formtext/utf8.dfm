object Größe: TForm
	Caption = 'Ж'
end
